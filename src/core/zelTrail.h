#pragma once

// The error trail that every procedure of the library runs under. A
// procedure names itself ("zelInputBox.MaxLength Let"), may keep a step
// marker as it advances, and runs its body through Run(): a zelError or a
// standard exception thrown there goes to mLog::ErrorLog with the trail
// name and the step marker, and is swallowed, or raised again when the
// procedure asks for it. No exception leaves a body otherwise.
//
//     zel::Trail t(this, "AddItemEx");
//     t.Run([&] { t.Step = "Adding Record"; ... });

#include "core/mLog.h"
#include "core/zelError.h"
#include "zelCtrlExport.h"

#include <QObject>
#include <QString>

namespace zel {

class ZELCTRL_EXPORT Trail
{
public:
    explicit Trail(const QString &name) : m_name(name) {}
    // "<class of owner>.<procedure>": the class is the owner's most derived
    // class, so a frame procedure reports the control that it serves.
    Trail(const QObject *owner, const char *procedure)
        : m_name(QString::fromLatin1(owner->metaObject()->className()) + QLatin1Char('.') +
                 QString::fromLatin1(procedure))
    {}

    const QString &Name() const { return m_name; }

    // The step marker handed to the log as its "more information".
    QString Step;

    // Runs body; true when it ran to its end, false when it failed (and the
    // failure was logged). With bRaise the failure is raised again to the
    // caller as ErrorLog decides.
    template <typename Body> bool Run(Body &&body, bool bRaise = false)
    {
        try {
            body();
            return true;
        } catch (...) {
            mLog::ErrorLog(m_name, zelCurrentError(), Step, bRaise);
            return false;
        }
    }

private:
    QString m_name;
};

} // namespace zel
