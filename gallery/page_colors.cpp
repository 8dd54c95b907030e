#include "zelGallery.h"

#include "fields/zelColorPicker.h"
#include "platform/zelPlatform.h"

#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace {

QString colourText(quint32 colour)
{
    return QStringLiteral("0x%1")
        .arg(colour, 8, 16, QLatin1Char('0'))
        .toUpper()
        .replace(QLatin1String("0X"), QLatin1String("0x"));
}

zelColorPicker *addPicker(QGridLayout *grid, zelEventLog *log, const QString &name,
                          const QString &caption, quint32 colour)
{
    const int row = grid->rowCount();
    auto *label = new QLabel(caption);
    auto *picker = new zelColorPicker;
    picker->setObjectName(name);
    picker->SetBackColor(colour);
    label->setBuddy(picker);
    grid->addWidget(label, row, 0);
    grid->addWidget(picker, row, 1);
    log->Watch(picker, name);
    QObject::connect(picker, &zelColorPicker::Click, picker, [log, picker, name] {
        log->Say(QStringLiteral("%1 colour is now %2").arg(name, colourText(picker->BackColor())));
    });
    return picker;
}

QWidget *makePage(zelEventLog *log)
{
    auto *page = new QWidget;
    auto *outer = new QVBoxLayout(page);
    auto *grid = new QGridLayout;
    grid->setColumnMinimumWidth(0, zel::TwipsToPixels(1800));
    outer->addLayout(grid);

    addPicker(grid, log, QStringLiteral("clrFill"), QStringLiteral("Fill colour"), 0x99CC33);
    addPicker(grid, log, QStringLiteral("clrOutline"), QStringLiteral("Outline colour"), 0x800000);
    addPicker(grid, log, QStringLiteral("clrLabel"), QStringLiteral("Label colour"), 0x0000FF);
    addPicker(grid, log, QStringLiteral("clrBackground"),
              QStringLiteral("Background (system button face)"), zel::SysButtonFace);
    addPicker(grid, log, QStringLiteral("clrFuellung"), QStringLiteral("Füllfarbe"), 0x00FFFF);
    auto *disabled = addPicker(grid, log, QStringLiteral("clrShadow"),
                               QStringLiteral("Shadow colour (disabled)"), 0x404040);
    disabled->SetEnabled(false);

    grid->setColumnStretch(2, 1);
    outer->addStretch();
    return page;
}

const zelGalleryPageRegistrar registrar(40, QStringLiteral("Colour pickers"), makePage);

} // namespace
