#include "zelGallery.h"

#include "fields/zelInputBox.h"

#include <QVBoxLayout>

namespace {

zelInputBox *addBox(QVBoxLayout *layout, zelEventLog *log, const QString &name)
{
    auto *box = new zelInputBox;
    box->setObjectName(name);
    layout->addWidget(box);
    log->Watch(box, name);
    return box;
}

QWidget *makePage(zelEventLog *log)
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);

    auto *text = addBox(layout, log, QStringLiteral("inpName"));
    text->SetDataType(8);
    text->SetPrefix(QStringLiteral("Layer name"));
    text->SetPrefixColon(true);
    text->SetPrefixWidth(1800);
    text->SetText(QStringLiteral("Roads"));

    auto *count = addBox(layout, log, QStringLiteral("inpCount"));
    count->SetDataType(3);
    count->SetPrefix(QStringLiteral("Feature count"));
    count->SetPrefixColon(true);
    count->SetPrefixWidth(1800);
    count->SetValue(1250);

    auto *width = addBox(layout, log, QStringLiteral("inpLineWidth"));
    width->SetDataType(5);
    width->SetDecimals(2);
    width->SetPrefix(QStringLiteral("Line width"));
    width->SetPrefixColon(true);
    width->SetPrefixWidth(1800);
    width->SetSuffix(QStringLiteral("1.00 to 10.00 mm"));
    width->SetSuffixParens(true);
    width->SetValueMin(1);
    width->SetValueMax(10);
    width->SetLimitValue(true);
    width->SetValue(2.5);

    auto *file = addBox(layout, log, QStringLiteral("inpFileName"));
    file->SetDataType(8);
    file->SetPrefix(QStringLiteral("File name"));
    file->SetPrefixColon(true);
    file->SetPrefixWidth(1800);
    file->SetSuffix(QStringLiteral("no / \\ : * ?"));
    file->SetIllegalChars(QStringLiteral("/\\:*?"));
    file->SetText(QStringLiteral("roads_2026"));

    auto *german = addBox(layout, log, QStringLiteral("inpBreite"));
    german->SetDataType(4);
    german->SetDecimals(1);
    german->SetPrefix(QStringLiteral("Linienbreite"));
    german->SetPrefixColon(true);
    german->SetPrefixBold(true);
    german->SetPrefixAlignment(0);
    german->SetPrefixWidth(1800);
    german->SetSuffix(QStringLiteral("Millimeter"));
    german->SetSuffixParens(true);
    german->SetValue(0.5);

    auto *readOnly = addBox(layout, log, QStringLiteral("inpCrs"));
    readOnly->SetDataType(8);
    readOnly->SetPrefix(QStringLiteral("Coordinate system"));
    readOnly->SetPrefixColon(true);
    readOnly->SetPrefixWidth(1800);
    readOnly->SetText(QStringLiteral("EPSG:25832 (read-only)"));
    readOnly->SetReadOnly(true);

    auto *disabled = addBox(layout, log, QStringLiteral("inpScale"));
    disabled->SetDataType(3);
    disabled->SetPrefix(QStringLiteral("Scale"));
    disabled->SetPrefixColon(true);
    disabled->SetPrefixWidth(1800);
    disabled->SetSuffix(QStringLiteral("disabled"));
    disabled->SetSuffixParens(true);
    disabled->SetValue(25000);
    disabled->SetEnabled(false);

    layout->addStretch();
    return page;
}

const zelGalleryPageRegistrar registrar(10, QStringLiteral("Input boxes"), makePage);

} // namespace
