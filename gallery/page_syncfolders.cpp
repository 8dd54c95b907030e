#include "zelGallery.h"

#include "syncfolders/frmSyncFolder.h"
#include "syncfolders/zelSyncFolderList.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QVBoxLayout>

namespace {

const QString Application = QStringLiteral("zelGallery");

// Two folders made for the page, with a few files each: some only on one
// side, one newer on the second side, one the same on both.
class SyncPage : public QWidget
{
public:
    explicit SyncPage(zelEventLog *log) : m_list(new zelSyncFolderList(this))
    {
        Write(QStringLiteral("office/roads.txt"), "A1 A7 B3", -60);
        Write(QStringLiteral("office/rivers.txt"), "Elbe Weser", -60);
        Write(QStringLiteral("office/parcels/north.csv"), "id;area\n1;200", -50);
        Write(QStringLiteral("laptop/roads.txt"), "A1 A7 B3 B12", -10);
        Write(QStringLiteral("laptop/rivers.txt"), "Elbe Weser", -60);
        Write(QStringLiteral("laptop/notes.md"), "survey notes", -5);
        Write(QStringLiteral("office/archive.bak"), "old", -500);

        m_list->SetApplication(Application);
        m_list->Folders()->Create(QStringLiteral("Survey"), m_dir.path() + "/office",
                                  m_dir.path() + "/laptop", ZEL_SyncBothWays,
                                  QStringLiteral("*.txt;*.csv;*.md"));
        m_list->Folders()->Create(QStringLiteral("Nested folders"), m_dir.path() + "/office",
                                  m_dir.path() + "/office/parcels");
        // What an earlier gallery run remembered belongs to other folders.
        for (const auto &f : *m_list->Folders())
            QFile::remove(zelSyncEngine::StateFile(Application, f->Name()));
        log->Watch(m_list, QStringLiteral("lstSyncFolders"));

        auto *layout = new QVBoxLayout(this);
        layout->addWidget(new QLabel(
            QStringLiteral(
                "frmSyncFolder on two folders made for this page (%1). Add and Properties ask for "
                "the "
                "folders; name, direction, files and enabled are edited in the grid. OK takes the "
                "changes, Cancel drops them.")
                .arg(QDir::toNativeSeparators(m_dir.path()))));
        m_formHolder = new QVBoxLayout;
        layout->addLayout(m_formHolder, 2);
        auto *buttons = new QHBoxLayout;
        auto add = [&](const QString &caption, auto action) {
            auto *b = new QPushButton(caption);
            connect(b, &QPushButton::clicked, this, action);
            buttons->addWidget(b);
        };
        add(QStringLiteral("&Preview"),
            [this] { Show(QStringLiteral("Preview"), m_list->Preview().join('\n')); });
        add(QStringLiteral("&Synchronise"),
            [this] { Show(QStringLiteral("Run"), m_list->Synchronise()); });
        add(QStringLiteral("Change roads.txt on both sides"), [this] {
            Write(QStringLiteral("office/roads.txt"), "A1 A7 B3 (office)", 0);
            Write(QStringLiteral("laptop/roads.txt"), "A1 A7 B3 (laptop)", 1);
            Show(QStringLiteral("Changed"), QStringLiteral("roads.txt changed in both folders"));
        });
        buttons->addStretch();
        layout->addLayout(buttons);
        m_output = new QPlainTextEdit;
        m_output->setObjectName(QStringLiteral("txtOutput"));
        m_output->setReadOnly(true);
        layout->addWidget(m_output, 1);

        MakeForm();
        Show(QStringLiteral("Preview"), m_list->Preview().join('\n'));
        Show(QStringLiteral("Run"), m_list->Synchronise());
    }

private:
    void Write(const QString &path, const QByteArray &data, int minutes)
    {
        const QString full = m_dir.path() + '/' + path;
        QDir().mkpath(QFileInfo(full).path());
        QFile f(full);
        if (f.open(QIODevice::WriteOnly))
            f.write(data);
        f.close();
        if (f.open(QIODevice::Append))
            f.setFileTime(QDateTime::currentDateTime().addSecs(minutes * 60),
                          QFileDevice::FileModificationTime);
    }

    void Show(const QString &what, const QString &text)
    {
        m_output->appendPlainText(QStringLiteral("== ") + what + QStringLiteral(" ==\n") + text);
    }

    // The form lives in the page; after OK or Cancel a new one shows the list.
    void MakeForm()
    {
        auto *form = new frmSyncFolder(*m_list->Folders(), this);
        form->setWindowFlags(Qt::Widget);
        m_formHolder->addWidget(form);
        connect(form, &QDialog::finished, this, [this, form](int result) {
            if (result == QDialog::Accepted) {
                m_list->Folders()->Clear();
                for (const auto &f : form->Folders())
                    m_list->Folders()->Add(f);
                m_list->Save();
            }
            form->deleteLater();
            MakeForm();
        });
        form->show();
    }

    QTemporaryDir m_dir;
    zelSyncFolderList *m_list;
    QVBoxLayout *m_formHolder = nullptr;
    QPlainTextEdit *m_output = nullptr;
};

QWidget *makePage(zelEventLog *log)
{
    return new SyncPage(log);
}

const zelGalleryPageRegistrar registrar(90, QStringLiteral("Synchronised folders"), makePage);

} // namespace
