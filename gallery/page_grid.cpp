#include "zelGallery.h"

#include "grid/zelGridList.h"

#include <QLabel>
#include <QVBoxLayout>

#include <memory>

namespace {

// The page answers the list's requests as a host would: the control only
// reports New, Edit and Delete, and the page changes the rows.
void serve(zelGridList *grid, const QString &prefix, int valueColumn, double step)
{
    auto counter = std::make_shared<int>(grid->Items()->Count());
    QObject::connect(grid, &zelGridList::NewRow, grid, [=](qint32 lRow) {
        ++*counter;
        QStringList cells;
        for (const auto &col : *grid->Columns()) {
            switch (col->DataType()) {
            case 11:
                cells << QString();
                break;
            case 36:
                cells << QString::number(0x00C0C0C0);
                break;
            default:
                if (zelGridType::IsNumeric(col->DataType()))
                    cells << QStringLiteral("1");
                else if (!col->ComboList().isEmpty())
                    cells << col->ComboList().section(QLatin1Char('|'), 0, 0);
                else
                    cells << prefix + QString::number(*counter);
                break;
            }
        }
        grid->AddItem(cells.join(QLatin1Char('\t')), prefix + QString::number(*counter), QVariant(),
                      lRow);
        grid->SelectItem(prefix + QString::number(*counter));
    });
    QObject::connect(grid, &zelGridList::Edit, grid, [=](qint32 lRow) {
        const auto row = grid->RowData(lRow);
        if (!row)
            return;
        const double value = row->Cell(valueColumn).toDouble() + step;
        row->SetCell(valueColumn, QString::number(value, 'f', step < 1 ? 2 : 0));
        grid->SetItem(row->Data(), row->Key(), QVariant(), lRow);
    });
    QObject::connect(grid, &zelGridList::Delete, grid,
                     [=](qint32, const QString &sKey) { grid->RemoveItemByKey(sKey); });
}

QWidget *makePage(zelEventLog *log)
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);

    auto *layers = new zelGridList;
    layers->setObjectName(QStringLiteral("grdLayers"));
    layers->SetCaption(QStringLiteral("Map layers (buttons beside; Edit widens the line)"));
    layers->SetButtonsOnSide(true);
    layers->SetCheckBoxes(true);
    layers->AddColumn(QStringLiteral("Layer"))->SetAllowEdit(true);
    auto width = layers->AddColumnEx(QStringLiteral("Width mm"), ZEL_ColumnAlignRight, 5, 2, 1100);
    width->SetAllowEdit(true);
    auto style = layers->AddColumnEx(QStringLiteral("Style"), ZEL_ColumnAlignLeft, 8, 0, 1300);
    style->SetComboList(QStringLiteral("Solid|Dashed|Dotted|Dash-dot"));
    style->SetAllowEdit(true);
    layers->AddColumnEx(QStringLiteral("Colour"), ZEL_ColumnAlignLeft, 36, 0, 900)
        ->SetAllowEdit(true);
    layers->RefreshColumns();
    layers->AddItemEx(QStringLiteral("\tMotorways\t1.50\tSolid\t255"), QStringLiteral("L1"),
                      QVariant(), -1, true);
    layers->AddItemEx(QStringLiteral("\tRivers\t0.80\tSolid\t16744448"), QStringLiteral("L2"),
                      QVariant(), -1, true);
    layers->AddItemEx(QStringLiteral("\tRailways\t0.60\tDashed\t4210752"), QStringLiteral("L3"));
    layers->AddItemEx(QStringLiteral("\tParcels\t0.25\tDotted\t32768"), QStringLiteral("L4"),
                      QVariant(), -1, true);
    layers->setMinimumHeight(230);
    serve(layers, QStringLiteral("Layer "), 2, 0.25);
    layout->addWidget(layers);
    log->Watch(layers, QStringLiteral("grdLayers"));

    auto *classes = new zelGridList;
    classes->setObjectName(QStringLiteral("grdClasses"));
    classes->SetCaption(QStringLiteral("Land use classes (buttons below; Edit counts up)"));
    classes->SetButtonsVisible(15 | 16);
    classes->SetButtonsEnabled(15 | 16);
    classes->SetOptionButtonCaption(0, QStringLiteral("Import"));
    classes->AddColumn(QStringLiteral("Class"))->SetAllowEdit(true);
    classes->AddColumnEx(QStringLiteral("Parcels"), ZEL_ColumnAlignRight, 3, 0, 1000)
        ->SetAllowEdit(true);
    classes->AddColumnEx(QStringLiteral("Colour"), ZEL_ColumnAlignLeft, 36, 0, 900);
    classes->AddItem(QStringLiteral("Residential\t1240\t8421631"), QStringLiteral("C1"));
    classes->AddItem(QStringLiteral("Forest\t312\t3329330"), QStringLiteral("C2"));
    classes->AddItem(QStringLiteral("Water\t58\t16760576"), QStringLiteral("C3"));
    classes->AddItem(QStringLiteral("Farmland\t804\t6737151"), QStringLiteral("C4"));
    classes->SetItemColorByKey(QStringLiteral("C3"), 0x00F0E0D0);
    classes->setMinimumHeight(200);
    serve(classes, QStringLiteral("Class "), 1, 1);
    layout->addWidget(classes);
    log->Watch(classes, QStringLiteral("grdClasses"));

    auto *hint = new QLabel(QStringLiteral(
        "Double-click or F2 edits the pale yellow cells; Space ticks a check box; the colour "
        "cells open the colour dialog."));
    hint->setWordWrap(true);
    layout->addWidget(hint);
    return page;
}

const zelGalleryPageRegistrar registrar(50, QStringLiteral("Grid list"), makePage);

} // namespace
