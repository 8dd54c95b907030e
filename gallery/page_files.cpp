#include "zelGallery.h"

#include "files/zelFileExp.h"
#include "wizard/zelPane.h"
#include "wizard/zelWizard.h"

#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTemporaryDir>
#include <QVBoxLayout>

// The file explorer on a folder the page prepares (shape files with their
// tables, text files, an archive subfolder), with the two filters a data
// collector offers; and the same explorer as the second pane of a two-pane
// wizard, entered with Next and left with Finish once a file is chosen.

namespace {

// The prepared folder lives as long as the page.
class SampleFolder : public QObject
{
public:
    explicit SampleFolder(QObject *parent) : QObject(parent)
    {
        const struct
        {
            const char *name;
            int bytes;
        } files[] = {{"parcels.shp", 182400},
                     {"parcels.dbf", 40960},
                     {"roads.shp", 2560},
                     {"wells.SHP", 1536},
                     {"readme.txt", 900},
                     {"notes.txt", 3584},
                     {"archive/old_parcels.shp", 51200}};
        QDir(m_dir.path()).mkdir(QStringLiteral("archive"));
        for (const auto &f : files) {
            QFile file(m_dir.filePath(QString::fromLatin1(f.name)));
            if (file.open(QIODevice::WriteOnly))
                file.write(QByteArray(f.bytes, '\0'));
        }
    }
    QString Path(const QString &below = QString()) const
    {
        return QDir::toNativeSeparators(below.isEmpty() ? m_dir.path() : m_dir.filePath(below));
    }

private:
    QTemporaryDir m_dir;
};

zelFileExp *makeExplorer(const QString &name, zelEventLog *log)
{
    auto *x = new zelFileExp;
    x->setObjectName(name);
    x->Initialize(QStringLiteral("Gallery"));
    x->Filters()->Create(QStringLiteral("shp"), QStringLiteral("*.shp"),
                         QStringLiteral("Shape files (*.shp)"));
    x->Filters()->Create(QStringLiteral("all"), QStringLiteral("*.*"),
                         QStringLiteral("All files (*.*)"));
    x->SetShowFilters(true);
    x->RefreshFilters();
    log->Watch(x, name);
    QObject::connect(x, &zelFileExp::SelectionChanged, log, [x, log, name] {
        QStringList chosen;
        for (const zelFile::Ptr &f : *x->FileList())
            if (f->Selected())
                chosen << f->Name() + QStringLiteral(" (") + f->SizeAsString() + QLatin1Char(')');
        log->Say(name + QStringLiteral(" selected: ") + chosen.join(QStringLiteral(", ")));
    });
    return x;
}

QWidget *addExplorer(QHBoxLayout *row, SampleFolder *folder, zelEventLog *log)
{
    auto *column = new QVBoxLayout;
    zelFileExp *x = makeExplorer(QStringLiteral("fexImport"), log);
    x->SelectFolder(folder->Path());
    column->addWidget(x, 1);
    auto *bar = new QHBoxLayout;
    auto *autoSelect = new QCheckBox(QStringLiteral("AutoSelect"));
    auto *multiSelect = new QCheckBox(QStringLiteral("MultiSelect"));
    multiSelect->setChecked(x->MultiSelect());
    QObject::connect(autoSelect, &QCheckBox::toggled, x, [x](bool on) { x->SetAutoSelect(on); });
    QObject::connect(multiSelect, &QCheckBox::toggled, x, [x](bool on) { x->SetMultiSelect(on); });
    auto *archive = new QPushButton(QStringLiteral("SelectFolder archive"));
    QObject::connect(archive, &QPushButton::clicked, x,
                     [x, folder] { x->SelectFolder(folder->Path(QStringLiteral("archive"))); });
    auto *gone = new QPushButton(QStringLiteral("SelectFolder (vanished)"));
    QObject::connect(gone, &QPushButton::clicked, x,
                     [x, folder] { x->SelectFolder(folder->Path(QStringLiteral("gone"))); });
    for (QWidget *w : {static_cast<QWidget *>(autoSelect), static_cast<QWidget *>(multiSelect),
                       static_cast<QWidget *>(archive), static_cast<QWidget *>(gone)})
        bar->addWidget(w);
    column->addLayout(bar);
    row->addLayout(column, 1);
    return x;
}

void addWizard(QHBoxLayout *row, SampleFolder *folder, zelEventLog *log)
{
    auto *wizard = new zelWizard;
    wizard->setObjectName(QStringLiteral("wizImport"));
    log->Watch(wizard, QStringLiteral("wizImport"));
    auto *start = new zelPane(wizard);
    start->SetPane(QStringLiteral("Start"));
    start->SetNextPane(QStringLiteral("Files"));
    start->SetIsFirstPane(true);
    start->SetPaneStyle(ZEL_PaneStyle_Header);
    start->SetHeaderTitle(QStringLiteral("Import field data"));
    start->SetHeaderDescription(QStringLiteral("Next shows the files of the collector."));
    auto *text =
        new QLabel(QStringLiteral("Choose the shape files to import on the next page."), start);
    text->move(20, 20);
    text->adjustSize();

    zelFileExp *x = makeExplorer(QStringLiteral("fexWizard"), log);
    x->setParent(wizard);
    x->SetPane(QStringLiteral("Files"));
    x->SetIsLastPane(true);
    x->SetCanFinish(true);
    x->SetPaneStyle(ZEL_PaneStyle_Header);
    x->SetHeaderTitle(QStringLiteral("Files to import"));
    x->SetHeaderDescription(QStringLiteral("Finish imports the files selected."));
    x->SetAutoSelect(true);
    QObject::connect(x, &zelFileExp::EnterPane, x,
                     [x, folder] { x->SelectFolder(folder->Path()); });
    // Finish only with a file chosen.
    QObject::connect(x, &zelFileExp::LeavePane, x,
                     [x, log](ZEL_Controls_WizardDirections d, bool &bCancel) {
                         bool any = false;
                         for (const zelFile::Ptr &f : *x->FileList())
                             any = any || f->Selected();
                         bCancel = d == ZEL_WizardDirection_None && !any;
                         if (bCancel)
                             log->Say(QStringLiteral("fexWizard keeps the user: no file chosen"));
                     });
    row->addWidget(wizard, 1);
}

QWidget *makePage(zelEventLog *log)
{
    auto *page = new QWidget;
    auto *folder = new SampleFolder(page);
    auto *row = new QHBoxLayout(page);
    addExplorer(row, folder, log);
    addWizard(row, folder, log);
    return page;
}

const zelGalleryPageRegistrar registrar(90, QStringLiteral("Files"), makePage);

} // namespace
