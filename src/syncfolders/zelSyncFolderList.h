#pragma once

// An application's list of synchronised folders: loaded from and saved to
// the per-user settings store under "Software\Quorvane\SyncFolders\<application>"
// (the group "SyncFolders/<application>" of the per-user settings file),
// edited by the user in frmSyncFolder, previewed and run.

#include "syncfolders/zelSyncEngine.h"
#include "syncfolders/zelSyncFolders.h"

#include <QObject>
#include <QString>
#include <QStringList>

#include <memory>

class QWidget;

class ZELCTRL_EXPORT zelSyncFolderList : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString Application READ Application WRITE SetApplication)
    Q_PROPERTY(std::shared_ptr<zelSyncFolders> Folders READ Folders)

public:
    Q_INVOKABLE explicit zelSyncFolderList(QObject *parent = nullptr);
    ~zelSyncFolderList() override;

    // The application whose list this is; empty by default. A name with a
    // "/" or "\", or longer than 200 characters, is refused (380).
    QString Application() const { return m_application; }
    void SetApplication(const QString &v);
    std::shared_ptr<zelSyncFolders> Folders() const { return m_folders; }

    // Replaces the folders by those stored for the application; an entry
    // that cannot be read is logged and left out. False when nothing could
    // be read because the application is not named.
    Q_INVOKABLE bool Load();
    // Stores the folders for the application in place of what was there.
    Q_INVOKABLE bool Save();
    // Opens frmSyncFolder on a copy of the folders; OK takes the copy and
    // saves it, Cancel leaves everything as it was. True when OK was chosen.
    Q_INVOKABLE bool Edit(QWidget *parent = nullptr);

    // What Synchronise would do for the folder of that name (empty: every
    // enabled folder), one line per file; no file is touched.
    Q_INVOKABLE QStringList Preview(const QString &sName = QString());
    // Runs the folder of that name (empty: every enabled folder) and answers
    // the summary, one line per folder. A list that was loaded or saved is
    // saved again, with the times of the runs.
    Q_INVOKABLE QString Synchronise(const QString &sName = QString());
    // Stops a run before its next file.
    Q_INVOKABLE void Cancel() { m_cancel = true; }

    // The plan and the run of one folder, for C++ hosts.
    QList<zelSyncAction> Plan(const zelSyncFolder &folder, QString *refusal = nullptr);
    zelSyncSummary Run(zelSyncFolder &folder);

signals:
    // Before each copy: lDone of lTotal copies of sFolder are done, sFile is
    // next. Setting bCancel stops the run there.
    void Progress(const QString &sFolder, const QString &sFile, qint32 lDone, qint32 lTotal,
                  bool &bCancel);
    // A folder's run ended (finished, failed or cancelled), with its summary.
    void Synchronised(const QString &sFolder, const QString &sSummary);

private:
    QString Group() const;
    // The folder of that name, or every enabled one; raises for an unknown name.
    QList<std::shared_ptr<zelSyncFolder>> Chosen(const QString &sName) const;

    QString m_application;
    std::shared_ptr<zelSyncFolders> m_folders;
    bool m_cancel = false;
    bool m_stored = false; // loaded from or saved to the store
};
