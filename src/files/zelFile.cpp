#include "files/zelFile.h"

#include "core/zelTrail.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPath.h"

#include <cmath>
#include <limits>

ZEL_REGISTER_PROGID(zelFile);

zelFile::zelFile(QObject *parent) : SharedObject(parent)
{
    zel::RegisterShared<zelFile>();
}

zelFile::~zelFile() = default;

void zelFile::SetFullPath(const QString &v)
{
    zel::Trail t(this, "FullPath Let");
    t.Run([&] {
        m_fullPath = v;
        // Errors suppressed: a path that names no file keeps the old facts.
        const zel::path::FileFacts facts = zel::path::StatFile(v);
        if (!facts.Exists)
            return;
        m_fileDate = facts.Modified;
        takeSize(facts.Size);
    });
}

void zelFile::SetListed(const QString &fullPath, qint64 size, qint64 modifiedMSecs)
{
    m_fullPath = fullPath;
    m_fileDate = QDateTime::fromMSecsSinceEpoch(modifiedMSecs, Qt::UTC);
    takeSize(size);
}

void zelFile::takeSize(qint64 size)
{
    // A size beyond 32 bits overflows the classic Long; that error is one
    // of those suppressed, so the old size stays.
    if (size >= 0 && size <= std::numeric_limits<qint32>::max())
        m_size = qint32(size);
}

QString zelFile::Folder() const
{
    return zel::path::Folder(m_fullPath);
}

QString zelFile::Name() const
{
    return m_name.isEmpty() ? zel::path::FileName(m_fullPath) : m_name;
}

QString zelFile::Extension() const
{
    return zel::path::Extension(m_fullPath).toLower();
}

QString zelFile::SizeAsString() const
{
    const double kb = SizeKB();
    if (!(kb >= 1.0))
        return QStringLiteral("1 KB");
    // Half to even, whatever rounding mode the host left behind.
    const double whole = std::floor(kb);
    const double rest = kb - whole;
    double rounded = whole;
    if (rest > 0.5 || (rest == 0.5 && std::fmod(whole, 2.0) != 0.0))
        rounded = whole + 1.0;
    return QString::number(qint64(rounded)) + QStringLiteral(" KB");
}

QVariant zelFile::Tag() const
{
    if (m_tagIsObject)
        return QVariant::fromValue<QObject *>(m_tagObject.data());
    return m_tag;
}

void zelFile::SetTag(const QVariant &v)
{
    // A plain object pointer would dangle once its owner deletes it; a
    // guarded reference reads as nothing then.
    m_tagIsObject = v.metaType().flags().testFlag(QMetaType::PointerToQObject);
    m_tagObject = m_tagIsObject ? qvariant_cast<QObject *>(v) : nullptr;
    m_tag = m_tagIsObject ? QVariant() : v;
}
