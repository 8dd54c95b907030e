#pragma once

// One file that a host chose, with what the application wants to do with
// it: a comment, whether it is selected, whether to delete it after use,
// and the delivery details of a mail or data-source transfer. Setting
// FullPath reads the file's date and size; nothing else here touches the
// file system.

#include "core/zelShared.h"
#include "zelCtrlExport.h"

#include <QDateTime>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>

#include <memory>

class ZELCTRL_EXPORT zelFile : public zel::SharedObject<zelFile>
{
    Q_OBJECT
    Q_PROPERTY(QString FullPath READ FullPath WRITE SetFullPath)
    Q_PROPERTY(QString Folder READ Folder)
    Q_PROPERTY(QString Name READ Name WRITE SetName)
    Q_PROPERTY(QString Extension READ Extension)
    Q_PROPERTY(qint32 Size READ Size WRITE SetSize)
    Q_PROPERTY(double SizeKB READ SizeKB)
    Q_PROPERTY(QString SizeAsString READ SizeAsString)
    Q_PROPERTY(QDateTime FileDate READ FileDate WRITE SetFileDate)
    Q_PROPERTY(QString Comment READ Comment WRITE SetComment)
    Q_PROPERTY(bool Selected READ Selected WRITE SetSelected)
    Q_PROPERTY(bool DeleteAfterUse READ DeleteAfterUse WRITE SetDeleteAfterUse)
    Q_PROPERTY(QString DSOURL READ DSOURL WRITE SetDSOURL)
    Q_PROPERTY(QString POPServer READ POPServer WRITE SetPOPServer)
    Q_PROPERTY(qint32 POPPort READ POPPort WRITE SetPOPPort)
    Q_PROPERTY(QString POPAccount READ POPAccount WRITE SetPOPAccount)
    Q_PROPERTY(QString POPPassword READ POPPassword WRITE SetPOPPassword)
    Q_PROPERTY(QString From READ From WRITE SetFrom)
    Q_PROPERTY(QString ReplyTo READ ReplyTo WRITE SetReplyTo)
    Q_PROPERTY(QVariant Tag READ Tag WRITE SetTag)

public:
    using Ptr = std::shared_ptr<zelFile>;

    Q_INVOKABLE explicit zelFile(QObject *parent = nullptr);
    ~zelFile() override;

    // Setting it also reads the file's modification date and size; a path
    // that names no file keeps the date and size held before.
    QString FullPath() const { return m_fullPath; }
    void SetFullPath(const QString &v);
    // The folder part of FullPath, without a trailing separator.
    QString Folder() const;
    // The name set, or else the file-name part of FullPath.
    QString Name() const;
    void SetName(const QString &v) { m_name = v; }
    // The extension of FullPath in lower case, without the dot.
    QString Extension() const;
    qint32 Size() const { return m_size; }
    void SetSize(qint32 v) { m_size = v; }
    double SizeKB() const { return m_size / 1024.0; }
    // Whole kilobytes, a half going to the even neighbour, and "1 KB" for
    // anything below one ("2 KB" for 2560 bytes, "4 KB" for 3584).
    QString SizeAsString() const;
    // Local time.
    QDateTime FileDate() const { return m_fileDate.toLocalTime(); }
    void SetFileDate(const QDateTime &v) { m_fileDate = v; }
    QString Comment() const { return m_comment; }
    void SetComment(const QString &v) { m_comment = v; }
    bool Selected() const { return m_selected; }
    void SetSelected(bool v) { m_selected = v; }
    bool DeleteAfterUse() const { return m_deleteAfterUse; }
    void SetDeleteAfterUse(bool v) { m_deleteAfterUse = v; }
    QString DSOURL() const { return m_dsoUrl; }
    void SetDSOURL(const QString &v) { m_dsoUrl = v; }
    QString POPServer() const { return m_popServer; }
    void SetPOPServer(const QString &v) { m_popServer = v; }
    qint32 POPPort() const { return m_popPort; }
    void SetPOPPort(qint32 v) { m_popPort = v; }
    QString POPAccount() const { return m_popAccount; }
    void SetPOPAccount(const QString &v) { m_popAccount = v; }
    // Held as given; no procedure ever hands it to the log.
    QString POPPassword() const { return m_popPassword; }
    void SetPOPPassword(const QString &v) { m_popPassword = v; }
    QString From() const { return m_from; }
    void SetFrom(const QString &v) { m_from = v; }
    QString ReplyTo() const { return m_replyTo; }
    void SetReplyTo(const QString &v) { m_replyTo = v; }
    // The host's value or object. An object is held as a reference that
    // reads as nothing once the object is gone; a value is copied.
    QVariant Tag() const;
    void SetTag(const QVariant &v);

    // For the explorer, which has read the date and size already: FullPath
    // without asking the file system again.
    void SetListed(const QString &fullPath, qint64 size, qint64 modifiedMSecs);

private:
    void takeSize(qint64 size);

    QString m_fullPath;
    QString m_name;
    qint32 m_size = 0;
    QDateTime m_fileDate;
    QString m_comment;
    bool m_selected = false;
    bool m_deleteAfterUse = false;
    QString m_dsoUrl;
    QString m_popServer;
    qint32 m_popPort = 0;
    QString m_popAccount;
    QString m_popPassword;
    QString m_from;
    QString m_replyTo;
    QVariant m_tag;
    QPointer<QObject> m_tagObject; // set when the Tag is a plain object reference
    bool m_tagIsObject = false;
};
