#include "syncfolders/zelSyncFolder.h"

#include "core/zelConvert.h"
#include "core/zelTrail.h"
#include "platform/zelFileSystem.h"
#include "platform/zelObjectFactory.h"

ZEL_REGISTER_PROGID(zelSyncFolder);

zelSyncFolder::zelSyncFolder(QObject *parent) : SharedObject(parent)
{
    zel::RegisterShared<zelSyncFolder>();
}

zelSyncFolder::~zelSyncFolder() = default;

void zelSyncFolder::SetDirection(const QVariant &v)
{
    zel::Trail t(this, "Direction Let");
    t.Run([&] {
        const qint32 d = zel::CLng(v);
        if (d < ZEL_SyncBothWays || d > ZEL_SyncFromSecond)
            throw zelError(zelError::InvalidPropertyValue);
        m_direction = ZEL_SyncDirections(d);
    });
}

void zelSyncFolder::SetEnabled(const QVariant &v)
{
    zel::Trail t(this, "Enabled Let");
    t.Run([&] { m_enabled = zel::CBool(v); });
}

QStringList zelSyncFolder::Patterns() const
{
    QStringList list;
    for (const QString &p : m_pattern.split(QLatin1Char(';'), Qt::SkipEmptyParts))
        if (!p.trimmed().isEmpty())
            list << p.trimmed();
    return list;
}

namespace {

// Whether canonical folder a lies below canonical folder b.
bool inside(const QString &a, const QString &b)
{
    return b == QLatin1String("/") || a.startsWith(b + QLatin1Char('/'));
}

} // namespace

QString zelSyncFolder::Check() const
{
    QString why;
    zel::Trail t(this, "Check");
    t.Run([&] {
        zel::FileSystem &fs = zel::fileSystem();
        const QString local = fs.CanonicalFolder(m_local), second = fs.CanonicalFolder(m_second);
        if (local.isEmpty())
            why =
                QStringLiteral("The folder \"%1\" does not exist or cannot be read.").arg(m_local);
        else if (second.isEmpty())
            why =
                QStringLiteral("The folder \"%1\" does not exist or cannot be read.").arg(m_second);
        else if (local == second)
            why = QStringLiteral("\"%1\" and \"%2\" are the same folder.").arg(m_local, m_second);
        else if (inside(local, second) || inside(second, local))
            why = QStringLiteral("\"%1\" and \"%2\" lie one inside the other.")
                      .arg(m_local, m_second);
    });
    return why;
}

std::shared_ptr<zelSyncFolder> zelSyncFolder::Clone() const
{
    auto copy = std::make_shared<zelSyncFolder>();
    copy->m_name = m_name;
    copy->m_local = m_local;
    copy->m_second = m_second;
    copy->m_direction = m_direction;
    copy->m_pattern = m_pattern;
    copy->m_enabled = m_enabled;
    copy->m_lastSync = m_lastSync;
    return copy;
}
