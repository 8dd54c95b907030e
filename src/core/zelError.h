#pragma once

// The error object that a failing procedure raises: a number, the source
// it came from and a description, as hosts of the classic controls know it.

#include "zelCtrlExport.h"
#include <QString>

#include <exception>
#include <string>

class ZELCTRL_EXPORT zelError : public std::exception
{
public:
    explicit zelError(qint32 number, const QString &source = {}, const QString &description = {});

    qint32 Number() const { return m_number; }
    QString Source() const { return m_source; }
    QString Description() const { return m_description; }

    const char *what() const noexcept override { return m_what.c_str(); }

    // The classic text of a run-time error number ("Overflow" for 6).
    static QString StandardDescription(qint32 number);

    // The classic numbers that the library raises.
    static constexpr qint32 InvalidProcedureCall = 5;
    static constexpr qint32 Overflow = 6;
    static constexpr qint32 OutOfMemory = 7;
    static constexpr qint32 SubscriptOutOfRange = 9;
    static constexpr qint32 TypeMismatch = 13;
    static constexpr qint32 InvalidPropertyValue = 380;
    static constexpr qint32 ObjectRequired = 424;
    static constexpr qint32 NotSupported = 438; // no such property or method
    static constexpr qint32 WrongArgumentCount = 450;
    static constexpr qint32 DialogCancelled = 32755; // the common dialog's cancel

private:
    qint32 m_number;
    QString m_source;
    QString m_description;
    std::string m_what;
};

// The current exception (inside a catch block) as the library's error object:
// zelError as it is, standard exceptions mapped to the classic numbers
// (overflow 6, out of memory 7, subscript out of range 9, type mismatch 13,
// anything else 5).
ZELCTRL_EXPORT zelError zelCurrentError();
