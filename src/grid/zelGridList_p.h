#pragma once

// The grid list's state behind its public surface, shared with its parts:
// the table model that reads the row objects directly (each row is held
// once, in Items), the view "vfgItems", the delegate that draws check boxes
// and the selection, and the selection bookkeeping.

#include "grid/zelGridColumns.h"
#include "grid/zelGridEnums.h"
#include "grid/zelGridLayout.h"
#include "grid/zelGridRows.h"
#include "grid/zelGridSizing.h"

#include <QHash>
#include <QString>

#include <memory>
#include <vector>

class QLabel;
class QPushButton;
class QWidget;
class zelPrpButtons;
class zelGridModel;
class zelGridView;
class zelGridDelegate;
class zelGridSelection;

struct zelGridListPrivate
{
    std::shared_ptr<zelGridColumns> columns = std::make_shared<zelGridColumns>();
    std::shared_ptr<zelGridRows> items = std::make_shared<zelGridRows>();
    std::shared_ptr<zelGridRows> selectedItems;

    QLabel *lblCaption = nullptr;
    zelGridView *vfgItems = nullptr;
    QWidget *viewport = nullptr; // the grid's, watched for its size
    zelGridModel *model = nullptr;
    zelGridDelegate *delegate = nullptr;
    zelGridSelection *selection = nullptr;
    QPushButton *cmdAdd = nullptr;
    QPushButton *cmdEdit = nullptr;
    QPushButton *cmdDelete = nullptr;
    QPushButton *cmdUp = nullptr;
    QPushButton *cmdDown = nullptr;
    zelPrpButtons *mpbProps = nullptr;

    QString language = QStringLiteral("English");
    QString caption;
    bool autoSizeColZero = true;
    bool checkBoxes = false;
    bool enabled = true;
    qint32 selectionCol = -2;
    bool allowRepeatClicks = false;
    bool buttonsOnSide = false;
    qint32 highlight = ZEL_Highlight_WithFocus;
    qint32 buttonsVisible = 15;
    qint32 buttonsEnabled = 15;
    qint16 borderStyle = 1;
    qint32 topMargin = 240;
    qint32 margin = 120;
    bool multiSelect = false;
    bool editOnFocus = false;

    // Set while the control itself moves the selection: the selection
    // events that the grid raises meanwhile are not passed on.
    bool busy = false;
    bool destroying = false;
    bool editing = false;
    bool applyingWidths = false;
    bool laying = false;
    std::vector<qint32> colWidths; // twips, per grid column
    zelColZeroInput sized;         // what the last SizeColZero read
    zelGridListLayout layout;
};

// "zelGridList.<procedure>": the procedures that run once per row when a
// host fills a long list name themselves without building their trail name
// each time.
inline const QString &zelGridTrailName(const char *procedure)
{
    static QHash<const char *, QString> names;
    auto it = names.find(procedure);
    if (it == names.end())
        it = names.insert(procedure,
                          QStringLiteral("zelGridList.") + QString::fromLatin1(procedure));
    return *it;
}
