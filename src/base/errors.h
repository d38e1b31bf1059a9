#pragma once
// The errors that the core raises. A command catches them at its own level and
// shows one message, with the error's number and description first (msg_erreur).

#include <QString>
#include <stdexcept>

namespace plouvarine {

class Error : public std::runtime_error {
public:
    Error(int number, const QString& description)
        : std::runtime_error(description.toStdString()), number_(number), description_(description) {}
    int number() const { return number_; }
    const QString& description() const { return description_; }

private:
    int number_;
    QString description_;
};

// An error of the database engine: the engine's code and its text.
class DbError : public Error {
public:
    using Error::Error;
};

// A file system or archive error.
class FileError : public Error {
public:
    using Error::Error;
};

}  // namespace plouvarine
