#pragma once

#include <QStringList>

#include <exception>

// The one exception family of the system. Every exception carries a message fit for the user.
class Exception : public std::exception {
public:
    explicit Exception(const QString &message) : text(message), utf8(message.toUtf8()) {}

    const QString &message() const { return text; }
    const char *what() const noexcept override { return utf8.constData(); }

private:
    QString text;
    QByteArray utf8;
};

// Ends the running action silently: the error display shows nothing.
class EAbort : public Exception {
public:
    EAbort() : Exception(QStringLiteral("Veiksmas nutrauktas")) {}
};

// A text that is not the number, date or code page text it was taken for.
class EConvertError : public Exception {
public:
    using Exception::Exception;
};

// A failure of the database. The message is for the user; the server's own text and the statement are kept
// for the details of the error display and are never empty silently: an engine that gives no text gets one.
class EDatabaseError : public Exception {
public:
    explicit EDatabaseError(const QString &message, const QString &server = {}, const QString &sql = {})
        : Exception(message),
          serverText(server),
          statement(sql)
    {
    }

    const QString serverText;
    const QString statement;
};

// The server can no longer be reached; the next attempt connects anew.
class EConnectionLost : public EDatabaseError {
public:
    using EDatabaseError::EDatabaseError;
};

// Another program or station holds the lock for longer than the time-out.
class EDatabaseBusy : public EDatabaseError {
public:
    using EDatabaseError::EDatabaseError;
};

// The row that was to be changed or deleted is no longer there.
class ERowGone : public EDatabaseError {
public:
    explicit ERowGone(const QString &sql = {})
        : EDatabaseError(QStringLiteral(u"Įrašas jau ištrintas kitoje darbo vietoje"), {}, sql)
    {
    }
};

// A unique key, a required column, a reference or another rule of the database refused the write.
class EConstraintError : public EDatabaseError {
public:
    explicit EConstraintError(const QString &message, const QString &server = {}, const QString &sql = {},
                              const QString &rule = {}, const QStringList &columnNames = {})
        : EDatabaseError(message, server, sql),
          constraint(rule),
          columns(columnNames)
    {
    }

    const QString constraint;  // the name of the rule; empty when the engine does not tell
    const QStringList columns; // the columns it is about; empty when the engine does not tell
};

// A row with the same unique key is there already.
class EUniqueViolation : public EConstraintError {
public:
    using EConstraintError::EConstraintError;
};

// A field does not take a value, or must not stay empty. The message names the field by its label.
class EFieldRefused : public Exception {
public:
    EFieldRefused(const QString &message, const QString &field) : Exception(message), name(field) {}

    const QString &fieldName() const { return name; }

private:
    QString name;
};
