#pragma once

// The file explorer: a folder tree on the left (ftvImport), the files of the
// chosen folder on the right (lvwImport), a splitter bar between them that
// the user drags (txtSplitter) and an optional combo of file-type filters
// (mcbFilters), all on one frame (fraControl). Every file shown is also a
// zelFile of FileList, whose Selected flags follow the list's selection
// after every listing and every change of the selection.
//
// The tree is filled lazily by Qt's file-system model, folders only, so a
// link that leads back up is only ever followed as far as the user opens
// it. A listing reads the folder once; a folder that cannot be read, or
// goes away on the way, lists what could be read and logs why.
//
// The explorer is a wizard pane: the pane members, EnterPane and LeavePane
// come from zelPaneContract, with no header style of its own by default.

#include "files/zelFileExpLayout.h"
#include "files/zelFileFilters.h"
#include "files/zelFileList.h"
#include "wizard/zelPaneContract.h"
#include "zelCtrlExport.h"

#include <QFont>
#include <QString>
#include <QVariant>

#include <memory>

class QFileSystemModel;
class QFrame;
class QModelIndex;
class QTreeView;
class zelCombo;
class zelFileListModel;

class ZELCTRL_EXPORT zelFileExp : public zelPaneContract
{
    Q_OBJECT
    Q_PROPERTY(QString AppName READ AppName)
    Q_PROPERTY(QVariant AutoSelect READ AutoSelect WRITE SetAutoSelect)
    Q_PROPERTY(QVariant MultiSelect READ MultiSelect WRITE SetMultiSelect)
    Q_PROPERTY(QString SelectedFolder READ SelectedFolder)
    Q_PROPERTY(QVariant ShowFilters READ ShowFilters WRITE SetShowFilters)
    Q_PROPERTY(QVariant SplitterLeft READ SplitterLeft WRITE SetSplitterLeft)
    Q_PROPERTY(std::shared_ptr<zelFileFilters> Filters READ Filters WRITE SetFilters)
    Q_PROPERTY(std::shared_ptr<zelFileList> FileList READ FileList WRITE SetFileList)
    Q_PROPERTY(std::shared_ptr<zelFileFilter> SelectedFilter READ SelectedFilter)

public:
    explicit zelFileExp(QWidget *parent = nullptr);
    ~zelFileExp() override;

    // The name given to the first Initialize; "Quorvane" until then.
    QString AppName() const;
    // Files listed are selected at once. By default false.
    bool AutoSelect() const { return m_autoSelect; }
    void SetAutoSelect(bool v);
    ZEL_LATE_BOUND(AutoSelect)
    // More than one file may be selected. By default true.
    bool MultiSelect() const { return m_multiSelect; }
    void SetMultiSelect(bool v);
    ZEL_LATE_BOUND(MultiSelect)
    // The folder the tree shows, normalised; "" before one is chosen.
    QString SelectedFolder() const;
    // Shows the folder in the tree and lists it (again): FolderChanged
    // follows. A path that names no folder is logged and changes nothing.
    Q_INVOKABLE void SelectFolder(const QString &sFolder);
    // Shows the filter combo. By default false.
    bool ShowFilters() const { return m_showFilters; }
    void SetShowFilters(bool v);
    ZEL_LATE_BOUND(ShowFilters)
    // The splitter's left edge in twips, by default 3300. Clamped as when
    // dragging: at least 3000, and, once the control has been laid out, at
    // most its width minus 2000.
    qint32 SplitterLeft() const { return m_splitterLeft; }
    void SetSplitterLeft(qint32 v);
    ZEL_LATE_BOUND(SplitterLeft)

    // The filters offered; RefreshFilters shows them in the combo.
    std::shared_ptr<zelFileFilters> Filters() const { return m_filters; }
    void SetFilters(const std::shared_ptr<zelFileFilters> &v);
    // The files of the folder shown. A list set here is shown as it is,
    // its rows selected as its files' Selected flags say.
    std::shared_ptr<zelFileList> FileList() const { return m_fileList; }
    void SetFileList(const std::shared_ptr<zelFileList> &v);
    // Nothing while no filter is chosen.
    std::shared_ptr<zelFileFilter> SelectedFilter() const { return m_selectedFilter; }
    // Chooses the filter of that key (nothing when absent); choosing one
    // lists the folder again and raises FilterChanged.
    Q_INVOKABLE void SelectFilter(const QVariant &vKey);
    // Fills the combo from Filters again, keeping the chosen filter when it
    // is still there, else choosing the first.
    Q_INVOKABLE void RefreshFilters();
    // Acts on its first call only: keeps sAppName, empties Filters and the
    // combo and sets CanBack. sLanguage and sHelpFile are not used.
    Q_INVOKABLE void Initialize(const QString &sAppName, const QString &sLanguage = QString(),
                                const QString &sHelpFile = QString());

    Q_INVOKABLE void InitProperties() override { zelPropertyHost::InitProperties(); }
    const zel::zelPropertyTable &Properties() const override;

    // The layout last applied (twips), and the splitter bar's colour, whose
    // button-face or workspace value is also the drag flag.
    const zel::zelFileExpLayout &Layout() const { return m_layout; }
    quint32 SplitterColor() const { return m_splitterColor; }

signals:
    // A long listing: StartProgress once, UpdateProgress as files are read,
    // EndProgress at the end. Not raised for listings of fewer than
    // ProgressFrom entries.
    void StartProgress(double dMin, double dMax);
    void UpdateProgress(double dValue);
    void EndProgress();
    // After the chosen folder was listed.
    void FolderChanged(const QString &sFolder);
    // After every listing, and whenever the selection of the list changed.
    void SelectionChanged();
    // After a filter was chosen in the combo and the folder listed with it.
    void FilterChanged(const std::shared_ptr<zelFileFilter> &oFilter);
    // The splitter came to rest at a new position (a drag ended, or
    // SplitterLeft was set).
    void SplitterChanged(qint32 lSplitterLeft);

public:
    // Listings of at least this many entries report their progress.
    static constexpr int ProgressFrom = 1000;

protected:
    QWidget *ColouredWidget() override;
    void resizeEvent(QResizeEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void ListFolder(const QString &folder, const std::shared_ptr<zelFileFilter> &filter);
    void UpdateSelections();
    void ftvImport_Change();
    void mcbFilters_Changed(bool bUserClick);
    void UserControl_Resize(bool force);
    bool txtSplitter_Mouse(QEvent *event);
    void paintSplitter(quint32 colour);
    void selectRowsFromFlags();
    void fileListChanged();
    void watchList(const std::shared_ptr<zelFileList> &list);

    QFrame *m_fraControl = nullptr;
    QTreeView *m_ftvImport = nullptr;
    QFileSystemModel *m_folders = nullptr;
    QTreeView *m_lvwImport = nullptr;
    zelFileListModel *m_rows = nullptr;
    zelCombo *m_mcbFilters = nullptr;
    QWidget *m_txtSplitter = nullptr;

    QString m_appName;
    bool m_initialized = false;
    bool m_autoSelect = false;
    bool m_multiSelect = true;
    bool m_showFilters = false;
    qint32 m_splitterLeft = 3300;
    qint32 m_splitterAtPress = 3300;
    quint32 m_splitterColor = 0x8000000F;
    std::shared_ptr<zelFileFilters> m_filters;
    std::shared_ptr<zelFileList> m_fileList;
    std::shared_ptr<zelFileFilter> m_selectedFilter;
    zel::zelFileExpLayout m_layout;
    QSize m_lastSize;
    bool m_laidOut = false;
    // Set while a listing or a selection update runs: the list's own
    // notifications are not followed then, and a second listing is refused.
    bool m_listing = false;
    bool m_selecting = false;
};
