#include "core/zelShared.h"

#include "core/mLog.h"
#include "core/zelError.h"

namespace zel::detail {

void LogRefusedDelete(const QObject *o) noexcept
{
    try {
        const QString cls = QString::fromLatin1(o->metaObject()->className());
        // Logger only: a delete may come while a window goes away, where no
        // message box may stand.
        mLog::AddToErrorLog(cls + QStringLiteral(".operator delete"),
                            zelError::InvalidProcedureCall, cls,
                            QStringLiteral("delete of an object that the library holds and the "
                                           "caller never owned; nothing was freed"),
                            QString(), 0);
    } catch (...) {
    }
}

} // namespace zel::detail
