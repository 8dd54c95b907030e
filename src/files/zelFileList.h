#pragma once

// The files a host or the file explorer holds, in the order they were
// added, keyed by FullPath (letter case ignored). A file may belong to
// several lists and to the host at once.

#include "core/zelShared.h"
#include "files/zelFile.h"
#include "files/zelFileCollection.h"

#include <QObject>
#include <QString>
#include <QVariant>

#include <memory>

class ZELCTRL_EXPORT zelFileList : public zel::SharedObject<zelFileList>
{
    Q_OBJECT
    Q_CLASSINFO("DispId.Item", "0")
    Q_CLASSINFO("DispId.NewEnum", "-4")
    Q_PROPERTY(qint32 Count READ Count)
    Q_PROPERTY(QString URL READ URL WRITE SetURL)

public:
    using Ptr = std::shared_ptr<zelFileList>;

    Q_INVOKABLE explicit zelFileList(QObject *parent = nullptr);
    ~zelFileList() override;

    // By key (a path) or by 1-based position; nothing when absent.
    Q_INVOKABLE zelFile::Ptr Item(const QVariant &vKey) const { return m_files.Item(vKey); }
    Q_INVOKABLE std::shared_ptr<zelGridEnumerator> NewEnum() const { return m_files.NewEnum(); }
    Q_INVOKABLE qint32 Count() const { return m_files.Count(); }
    Q_INVOKABLE bool Remove(const QVariant &vKey);
    Q_INVOKABLE void Clear();
    // False when a file of the same FullPath is there already.
    bool Add(const zelFile::Ptr &oFile);
    Q_INVOKABLE bool Add(QObject *oFile);
    // A new file with FullPath, Comment and Selected set in that order,
    // added; nothing when a file of that path is there already.
    Q_INVOKABLE zelFile::Ptr Create(const QString &sFullPath, const QString &sComment = QString(),
                                    bool bSelected = true);
    // An address the host attaches to the list as a whole.
    QString URL() const { return m_url; }
    void SetURL(const QString &v) { m_url = v; }
    // Kept for hosts of the classic list: answers "".
    QString ExportXML(const QString &sXML) const;

    // For the explorer: the file at a 1-based position in O(1), and a file
    // made from facts already read.
    zelFile::Ptr At(qint32 position) const { return m_files.items().ItemAt(position); }
    // The 1-based position of the file kept under this path; 0 for none.
    qint32 IndexOf(const QString &fullPath) const { return m_files.items().IndexOfKey(fullPath); }
    zelFile::Ptr CreateListed(const QString &fullPath, qint64 size, qint64 modifiedMSecs);
    zel::zelKeyedCollection<zelFile>::const_iterator begin() const
    {
        return m_files.items().begin();
    }
    zel::zelKeyedCollection<zelFile>::const_iterator end() const { return m_files.items().end(); }

signals:
    // The members changed by Add, Create, Remove or Clear (the explorer's
    // list follows it).
    void MembersChanged();

private:
    zel::zelFileCollection<zelFile> m_files;
    QString m_url;
};
