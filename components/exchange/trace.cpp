#include "components/exchange/trace.h"

namespace plouvarine::exchange {

Trace::Trace(const QString& path) : file_(path)
{
    ok_ = file_.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text);
}

void Trace::line(const QString& text)
{
    if (!ok_)
        return;
    const QByteArray bytes = text.toUtf8() + '\n';
    ok_ = file_.write(bytes) == bytes.size() && file_.flush();
}

void Trace::error(const QString& text)
{
    ++errors_;
    line(QStringLiteral("Erreur : ") + text);
}

}  // namespace plouvarine::exchange
