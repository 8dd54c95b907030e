#include "syncfolders/frmSyncFolder.h"

#include "buttons/zelStdButtons.h"
#include "core/zelTrail.h"
#include "grid/zelGridList.h"
#include "platform/zelPlatform.h"

#include <QDir>
#include <QVBoxLayout>

namespace {

const QStringList Directions{QStringLiteral("Both ways"), QStringLiteral("To the second folder"),
                             QStringLiteral("From the second folder")};
const QStringList YesNo{QStringLiteral("Yes"), QStringLiteral("No")};

} // namespace

frmSyncFolder::frmSyncFolder(const zelSyncFolders &folders, QWidget *parent)
    : QDialog(parent), m_grid(new zelGridList(this)), m_buttons(new zelStdButtons(this))
{
    setObjectName(QStringLiteral("frmSyncFolder"));
    setWindowTitle(QStringLiteral("Synchronised folders"));
    m_grid->setObjectName(QStringLiteral("glsFolders"));
    m_buttons->setObjectName(QStringLiteral("sbnOKCancel"));
    m_buttons->SetButtonsVisible(ZEL_StdButton_OKCancel);
    m_grid->SetButtonsVisible(ZEL_PrpButton_AddRemoveProps);
    m_grid->SetAutoSizeColZero(false);
    auto column = [&](const char *caption, qint32 twips, const QStringList &choices = {},
                      bool edit = true) {
        auto c = m_grid->AddColumn(QString::fromLatin1(caption));
        c->SetWidth(twips);
        c->SetAllowEdit(edit);
        c->SetComboList(choices.join(QLatin1Char('|')));
    };
    column("Name", 1800);
    column("Folder", 3000, {}, false);
    column("Second folder", 3000, {}, false);
    column("Direction", 2100, Directions);
    column("Files", 1500);
    column("Enabled", 900, YesNo);
    m_grid->RefreshColumns();
    for (const auto &f : folders) {
        m_folders << f->Clone();
        m_grid->AddItem(RowText(*m_folders.last()), QString::number(m_folders.size()));
    }

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_grid, 1);
    layout->addWidget(m_buttons, 0, Qt::AlignRight);
    resize(zel::TwipsToPixels(10500), zel::TwipsToPixels(5000));

    connect(m_grid, &zelGridList::NewRow, this, &frmSyncFolder::AddFolder);
    connect(m_grid, &zelGridList::Edit, this, &frmSyncFolder::EditFolder);
    connect(m_grid, &zelGridList::Delete, this,
            [this](qint32 lRow, const QString &) { RemoveFolder(lRow); });
    connect(m_grid, &zelGridList::EditCellByRef, this, &frmSyncFolder::EditCell);
    connect(m_buttons, &zelStdButtons::OK, this, &QDialog::accept);
    connect(m_buttons, &zelStdButtons::Cancel, this, &QDialog::reject);
}

frmSyncFolder::~frmSyncFolder() = default;

QString frmSyncFolder::RowText(const zelSyncFolder &f) const
{
    return QStringList{f.Name(),
                       QDir::toNativeSeparators(f.LocalFolder()),
                       QDir::toNativeSeparators(f.SecondFolder()),
                       Directions.value(f.Direction()),
                       f.Pattern(),
                       YesNo.value(f.Enabled() ? 0 : 1)}
        .join(QLatin1Char('\t'));
}

void frmSyncFolder::ShowRow(qint32 lRow)
{
    // Grid keys are positions; a removal renumbers them, so rows are set by row.
    m_grid->SetItem(RowText(*m_folders.at(lRow - 1)), QString(), QVariant(), lRow);
}

QString frmSyncFolder::UniqueName(const QString &wanted, const zelSyncFolder *self) const
{
    const QString base = wanted.trimmed().isEmpty() ? QStringLiteral("Folder") : wanted.trimmed();
    auto taken = [&](const QString &name) {
        for (const auto &f : m_folders)
            if (f.get() != self && f->Name().compare(name, Qt::CaseInsensitive) == 0)
                return true;
        return false;
    };
    QString name = base;
    for (int n = 2; taken(name); ++n)
        name = base + QStringLiteral(" %1").arg(n);
    return name;
}

bool frmSyncFolder::ChooseFolders(zelSyncFolder &folder)
{
    zel::Platform &p = zel::platform();
    const QString local =
        p.ChooseFolder(QStringLiteral("Folder to keep in step"), folder.LocalFolder(), this);
    if (local.isEmpty())
        return false;
    const QString second =
        p.ChooseFolder(QStringLiteral("Second folder"), folder.SecondFolder(), this);
    if (second.isEmpty())
        return false;
    auto trial = folder.Clone();
    trial->SetLocalFolder(local);
    trial->SetSecondFolder(second);
    const QString why = trial->Check();
    if (!why.isEmpty()) {
        p.MessageBox(why, QStringLiteral("Invalid Data"), this);
        return false;
    }
    folder.SetLocalFolder(local);
    folder.SetSecondFolder(second);
    return true;
}

void frmSyncFolder::AddFolder(qint32)
{
    zel::Trail t(this, "mpbProps_Add");
    t.Run([&] {
        auto folder = std::make_shared<zelSyncFolder>();
        if (!ChooseFolders(*folder))
            return;
        folder->SetName(UniqueName(QDir(folder->LocalFolder()).dirName(), nullptr));
        m_folders << folder;
        m_grid->AddItem(RowText(*folder), QString::number(m_folders.size()));
    });
}

void frmSyncFolder::EditFolder(qint32 lRow)
{
    zel::Trail t(this, "mpbProps_Properties");
    t.Run([&] {
        if (lRow < 1 || lRow > m_folders.size())
            return;
        if (ChooseFolders(*m_folders.at(lRow - 1)))
            ShowRow(lRow);
    });
}

void frmSyncFolder::RemoveFolder(qint32 lRow)
{
    zel::Trail t(this, "mpbProps_Remove");
    t.Run([&] {
        if (lRow < 1 || lRow > m_folders.size())
            return;
        m_folders.removeAt(lRow - 1);
        m_grid->Clear();
        for (qsizetype i = 0; i < m_folders.size(); ++i)
            m_grid->AddItem(RowText(*m_folders.at(i)), QString::number(i + 1));
    });
}

void frmSyncFolder::EditCell(qint32 lRow, qint32 lColumn, QString &sText)
{
    zel::Trail t(this, "glsFolders_EditCell");
    t.Run([&] {
        if (lRow < 1 || lRow > m_folders.size())
            return;
        zelSyncFolder &f = *m_folders.at(lRow - 1);
        switch (lColumn) {
        case ColName:
            f.SetName(UniqueName(sText, &f));
            sText = f.Name();
            break;
        case ColDirection:
            if (Directions.contains(sText))
                f.SetDirection(Directions.indexOf(sText));
            sText = Directions.value(f.Direction());
            break;
        case ColPattern:
            f.SetPattern(sText.trimmed());
            sText = f.Pattern();
            break;
        case ColEnabled:
            if (YesNo.contains(sText))
                f.SetEnabled(sText == YesNo.first());
            sText = YesNo.value(f.Enabled() ? 0 : 1);
            break;
        default:
            break;
        }
    });
}
