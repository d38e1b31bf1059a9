#pragma once
// The trace file of an exchange run: the report the person reads afterwards,
// one French line per event, written as it happens so that a run that stops
// half-way still tells how far it went.

#include <QFile>
#include <QString>

namespace plouvarine::exchange {

class Trace {
public:
    // Opens `path` for appending, UTF-8. A trace that cannot be written keeps
    // the run going: its lines are then lost, which `ok()` tells.
    explicit Trace(const QString& path);
    void line(const QString& text);
    // "Erreur : " and the text.
    void error(const QString& text);
    bool ok() const { return ok_; }
    int errors() const { return errors_; }

private:
    QFile file_;
    bool ok_ = false;
    int errors_ = 0;
};

}  // namespace plouvarine::exchange
