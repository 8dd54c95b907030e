#include "lists/zelImageList.h"

#include "core/zelError.h"
#include "lists/zelListIcons_p.h"
#include "platform/zelImageFile.h"

#include <QFileInfo>
#include <QImage>
#include <QPixmap>

namespace zel {
namespace {

constexpr const char *Source = "zelImageList.ReplaceImage";

QString Fold(const QString &key)
{
    return key.toCaseFolded();
}

[[noreturn]] void Refuse(qint32 number, const QString &why)
{
    throw zelError(number, QString::fromLatin1(Source), why);
}

// The picture a handle stands for, or a zelError saying why there is none.
QIcon PictureOf(const QVariant &handle)
{
    switch (handle.metaType().id()) {
    case QMetaType::QPixmap: {
        const auto pixmap = handle.value<QPixmap>();
        if (pixmap.isNull())
            Refuse(zelImageList::InvalidPicture, QStringLiteral("The pixmap is empty"));
        return QIcon(pixmap);
    }
    case QMetaType::QImage: {
        const auto image = handle.value<QImage>();
        if (image.isNull())
            Refuse(zelImageList::InvalidPicture, QStringLiteral("The image is empty"));
        return QIcon(QPixmap::fromImage(image));
    }
    case QMetaType::QIcon: {
        const auto icon = handle.value<QIcon>();
        if (icon.isNull())
            Refuse(zelImageList::InvalidPicture, QStringLiteral("The icon is empty"));
        return icon;
    }
    case QMetaType::QString: {
        QString why;
        const QImage image = ReadImageFile(handle.toString(), &why);
        if (image.isNull())
            Refuse(QFileInfo::exists(handle.toString()) ? zelImageList::InvalidPicture
                                                        : zelImageList::FileNotFound,
                   why);
        return QIcon(QPixmap::fromImage(image));
    }
    default:
        Refuse(zelError::TypeMismatch,
               QStringLiteral("A picture must be a pixmap, image, icon or file name, not %1")
                   .arg(QString::fromLatin1(handle.isValid() ? handle.typeName() : "nothing")));
    }
}

} // namespace

zelImageList::zelImageList(QObject *parent) : QObject(parent)
{
    m_icons.resize(ListIcons::Count);
    m_builtin.reserve(ListIcons::Count);
    for (int i = 0; i < ListIcons::Count; ++i) {
        m_builtin.push_back(i);
        m_map.insert(Fold(ListIcons::Key(i)), i + 1);
    }
}

zelImageList::~zelImageList() = default;

qint32 zelImageList::ImageIndex(const QVariant &vImageKey) const
{
    if (!vImageKey.canConvert<QString>())
        return 0;
    const QString key = vImageKey.toString();
    return key.isEmpty() ? 0 : m_map.value(Fold(key), 0);
}

QIcon zelImageList::Icon(qint32 index) const
{
    if (index < 1 || index > Count())
        return {};
    const auto at = std::size_t(index - 1);
    if (at < m_builtin.size() && m_builtin[at] >= 0) {
        m_icons[at] = ListIcons::Make(m_builtin[at]);
        m_builtin[at] = -1;
    }
    return m_icons[at];
}

void zelImageList::ClearImages()
{
    m_icons.clear();
    m_builtin.clear();
    m_map.clear();
    Touch();
}

bool zelImageList::ReplaceImage(const QString &sKey, const QVariant &lHandle)
{
    if (sKey.isEmpty())
        Refuse(zelError::InvalidProcedureCall, QStringLiteral("An image key must not be empty"));
    QIcon icon = PictureOf(lHandle);
    const QString key = Fold(sKey);
    if (const qint32 k = m_map.value(key, 0); k > 0) {
        const auto at = std::size_t(k - 1);
        m_icons[at] = std::move(icon);
        if (at < m_builtin.size())
            m_builtin[at] = -1;
    } else {
        m_icons.push_back(std::move(icon));
        m_map.insert(key, Count());
    }
    Touch();
    return true;
}

void zelImageList::Touch()
{
    ++m_generation;
    emit ImagesChanged();
}

} // namespace zel
