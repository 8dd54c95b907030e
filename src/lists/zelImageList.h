#pragma once

// The image map and icon list shared by the tree list and the combo tree:
// image keys (compared without regard to letter case) mapped to 1-based icon
// indices, and the icons themselves. A new list holds the library's 41
// pictures under their keys ("Tank" = 1 ... "Flag" = 41).

#include "zelCtrlExport.h"

#include <QHash>
#include <QIcon>
#include <QObject>
#include <QString>
#include <QVariant>

#include <vector>

namespace zel {

class ZELCTRL_EXPORT zelImageList : public QObject
{
    Q_OBJECT

public:
    explicit zelImageList(QObject *parent = nullptr);
    ~zelImageList() override;

    // Number of icons held.
    qint32 Count() const { return qint32(m_icons.size()); }

    // The index an image key maps to; 0 for an unknown, missing or empty key.
    // The map is keyed by text: a number is looked up by its text (3 finds
    // the key "3", never the third icon), and a variant with no text form
    // (a picture, a list) finds nothing.
    qint32 ImageIndex(const QVariant &vImageKey) const;

    // The icon at a 1-based index; a null icon for 0 or an index out of range.
    // Icons are made once and handed out shared, so a model may ask for them
    // on every paint.
    QIcon Icon(qint32 index) const;

    // Removes every icon and every key, the built-in ones too.
    void ClearImages();

    // Stores a picture under sKey: a known key has its icon replaced in
    // place, a new key gets a new last icon. lHandle is a QPixmap, QImage,
    // QIcon, or a file name read through the platform layer. A picture that
    // is null or cannot be read, an empty key, or a handle of any other type
    // throws zelError and leaves the list as it was. Answers true.
    bool ReplaceImage(const QString &sKey, const QVariant &lHandle);

    // Rises on every change of the icons or the map, so that views repaint.
    quint64 Generation() const { return m_generation; }

    // Classic "Invalid picture" and "File not found" error numbers.
    static constexpr qint32 InvalidPicture = 481;
    static constexpr qint32 FileNotFound = 53;

signals:
    // Emitted after every change of the icons or the map; not on a refusal.
    void ImagesChanged();

private:
    void Touch();

    // Built-in pictures are drawn on first use: a list that is cleared or
    // never shown costs nothing, and no painting happens before the GUI runs.
    // m_builtin[i] is the picture still to draw into m_icons[i], or -1.
    mutable std::vector<QIcon> m_icons;
    mutable std::vector<int> m_builtin;
    QHash<QString, qint32> m_map; // case-folded key -> 1-based index
    quint64 m_generation = 0;
};

} // namespace zel
