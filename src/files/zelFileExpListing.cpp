// The file explorer's folders, filters and listings.

#include "files/zelFileExp.h"

#include "core/zelTrail.h"
#include "files/zelFileListModel_p.h"
#include "lists/zelCombo.h"
#include "platform/zelPath.h"
#include "platform/zelPlatform.h"

#include <QDir>
#include <QFileSystemModel>
#include <QPointer>
#include <QTreeView>

#include <algorithm>

namespace {

// The classic numbers of the file errors the explorer logs.
constexpr qint32 BadFileName = 52;
constexpr qint32 PermissionDenied = 70;
constexpr qint32 PathFileAccessError = 75;
constexpr qint32 PathNotFound = 76;

void logError(const zel::Trail &t, qint32 number, const QString &description)
{
    mLog::ErrorLog(t.Name(), zelError(number, t.Name(), description), t.Step, false);
}

} // namespace

QString zelFileExp::SelectedFolder() const
{
    const QModelIndex current = m_ftvImport->currentIndex();
    return current.isValid() ? zel::path::NormalizeFolder(m_folders->filePath(current)) : QString();
}

void zelFileExp::SelectFolder(const QString &sFolder)
{
    zel::Trail t(this, "SelectFolder");
    t.Run([&] {
        const QString folder = zel::path::NormalizeFolder(sFolder);
        t.Step = folder.left(300);
        switch (zel::path::StateOf(folder)) {
        case zel::path::FolderState::Missing:
            throw zelError(PathNotFound, t.Name(), QStringLiteral("No such folder"));
        case zel::path::FolderState::NotAFolder:
            throw zelError(PathNotFound, t.Name(), QStringLiteral("Not a folder"));
        default:
            break; // an unreadable folder is shown, and lists as empty
        }
        if (folder.compare(SelectedFolder(), Qt::CaseSensitive) == 0) {
            ftvImport_Change();
            return;
        }
        const QModelIndex index = m_folders->index(QDir::fromNativeSeparators(folder));
        if (!index.isValid())
            throw zelError(PathNotFound, t.Name(),
                           QStringLiteral("The folder tree has no such folder"));
        // The tree's change event lists the folder.
        m_ftvImport->setCurrentIndex(index);
        m_ftvImport->scrollTo(index);
    });
}

void zelFileExp::ftvImport_Change()
{
    zel::Trail t(this, "ftvImport_Change");
    t.Run([&] {
        if (!zel::UserMode(this))
            return;
        const QString folder = SelectedFolder();
        if (folder.isEmpty())
            return;
        QPointer<zelFileExp> alive(this);
        ListFolder(folder, m_selectedFilter);
        if (alive)
            emit FolderChanged(folder);
    });
}

void zelFileExp::ListFolder(const QString &folder, const std::shared_ptr<zelFileFilter> &filter)
{
    zel::Trail t(this, "ListFolder");
    if (m_listing) {
        // A host's progress handler asked for another listing.
        logError(t, zelError::InvalidProcedureCall, QStringLiteral("A folder is being listed"));
        return;
    }
    QPointer<zelFileExp> alive(this);
    const std::shared_ptr<zelFileList> list = m_fileList; // a handler may set another
    m_listing = true;
    t.Run([&] {
        t.Step = QStringLiteral("Clearing");
        m_rows->SetList(nullptr);
        list->Clear();

        t.Step = QStringLiteral("Reading folder");
        zel::path::FolderListing read = zel::path::ListFiles(folder);
        if (!read.Error.isEmpty())
            logError(t,
                     zel::path::StateOf(folder) == zel::path::FolderState::Unreadable
                         ? PermissionDenied
                         : PathFileAccessError,
                     read.Error);
        std::sort(read.Files.begin(), read.Files.end(), [](const auto &a, const auto &b) {
            return a.Name.compare(b.Name, Qt::CaseInsensitive) < 0;
        });

        t.Step = QStringLiteral("Adding files");
        const QStringList patterns =
            (filter ? filter->Filter() : QStringLiteral("*.*")).split(QLatin1Char(';'));
        const qint64 total = qint64(read.Files.size()) * patterns.size();
        const bool progress = total >= ProgressFrom;
        if (progress) {
            emit StartProgress(0.0, double(total));
            if (!alive)
                return;
        }
        QString prefix = folder;
        if (!prefix.endsWith(QDir::separator()))
            prefix += QDir::separator();
        qint64 done = 0;
        for (const QString &p : patterns) {
            const zel::path::FilePattern pattern(p.trimmed());
            if (pattern.IsEmpty())
                logError(t, BadFileName, QStringLiteral("An empty file pattern matches no file"));
            for (const zel::path::FolderEntry &e : read.Files) {
                if (progress && ++done % 1024 == 0) {
                    emit UpdateProgress(double(done));
                    if (!alive)
                        return;
                }
                // A file an earlier pattern listed comes back as nothing.
                if (pattern.Matches(e.Name))
                    list->CreateListed(prefix + e.Name, e.Size, e.ModifiedMSecs);
            }
        }
        if (progress) {
            emit UpdateProgress(double(total));
            if (!alive)
                return;
            emit EndProgress();
        }
    });
    if (!alive)
        return;
    m_rows->SetList(m_fileList);
    t.Run([&] {
        t.Step = QStringLiteral("Selecting");
        QItemSelectionModel *selection = m_lvwImport->selectionModel();
        m_selecting = true;
        selection->clear();
        const int rows = m_rows->rowCount();
        if (rows > 0) {
            const QModelIndex first = m_rows->index(0, 0);
            if (m_autoSelect)
                selection->select(QItemSelection(first, m_rows->index(m_multiSelect ? rows - 1 : 0,
                                                                      m_rows->columnCount() - 1)),
                                  QItemSelectionModel::Select);
            selection->setCurrentIndex(first, QItemSelectionModel::NoUpdate);
        }
        m_selecting = false;
    });
    m_selecting = false;
    m_listing = false;
    UpdateSelections();
}

void zelFileExp::UpdateSelections()
{
    zel::Trail t(this, "UpdateSelections");
    QPointer<zelFileExp> alive(this);
    const bool ran = t.Run([&] {
        // Row r shows the file at position r + 1: no key is looked up.
        std::vector<bool> selected(size_t(m_rows->rowCount()), false);
        for (const QItemSelectionRange &range : m_lvwImport->selectionModel()->selection())
            for (int r = range.top(); r <= range.bottom(); ++r)
                selected[size_t(r)] = true;
        size_t r = 0;
        for (const zelFile::Ptr &file : *m_rows->List()) {
            if (r >= selected.size())
                break;
            file->SetSelected(selected[r++]);
        }
    });
    if (ran && alive)
        emit SelectionChanged();
}

void zelFileExp::selectRowsFromFlags()
{
    zel::Trail t(this, "selectRowsFromFlags");
    m_selecting = true;
    t.Run([&] {
        QItemSelection selection;
        const int columns = m_rows->columnCount() - 1;
        int row = 0, runStart = -1;
        auto closeRun = [&](int end) {
            if (runStart >= 0)
                selection.select(m_rows->index(runStart, 0), m_rows->index(end, columns));
            runStart = -1;
        };
        for (const zelFile::Ptr &file : *m_rows->List()) {
            if (file->Selected() && runStart < 0)
                runStart = row;
            else if (!file->Selected())
                closeRun(row - 1);
            ++row;
        }
        closeRun(row - 1);
        m_lvwImport->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
    });
    m_selecting = false;
}

void zelFileExp::mcbFilters_Changed(bool bUserClick)
{
    Q_UNUSED(bUserClick);
    zel::Trail t(this, "mcbFilters_Changed");
    t.Run([&] {
        const auto record = m_mcbFilters->SelectedRecord();
        m_selectedFilter =
            record ? qvariant_cast<std::shared_ptr<zelFileFilter>>(record->Tag()) : nullptr;
        const std::shared_ptr<zelFileFilter> chosen = m_selectedFilter;
        QPointer<zelFileExp> alive(this);
        const QString folder = SelectedFolder();
        if (!folder.isEmpty())
            ListFolder(folder, chosen);
        if (alive)
            emit FilterChanged(chosen);
    });
}

void zelFileExp::SelectFilter(const QVariant &vKey)
{
    zel::Trail t(this, "SelectFilter");
    t.Run([&] {
        m_selectedFilter = m_filters->Item(vKey);
        // The combo's change event lists the folder and raises FilterChanged.
        if (m_selectedFilter)
            m_mcbFilters->SelectItem(m_selectedFilter->Key());
    });
}

void zelFileExp::RefreshFilters()
{
    zel::Trail t(this, "RefreshFilters");
    t.Run([&] {
        const QString remembered = m_selectedFilter ? m_selectedFilter->Key() : QString();
        m_mcbFilters->Clear();
        for (const zelFileFilter::Ptr &f : *m_filters) {
            // A tab would split the name into columns the combo does not have.
            QString name = f->Name();
            name.replace(QLatin1Char('\t'), QLatin1Char(' '));
            m_mcbFilters->AddItem(f->Key(), name, QVariant::fromValue(f));
        }
        if (m_filters->Count() == 0) {
            m_selectedFilter = nullptr;
            return;
        }
        const auto again = remembered.isEmpty() ? nullptr : m_filters->Item(remembered);
        m_mcbFilters->SelectItem(again ? again->Key() : m_filters->Item(1)->Key());
    });
}
