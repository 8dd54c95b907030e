#include "zelGallery.h"

#include "lists/zelCombo.h"
#include "lists/zelComboTree.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

// The record lists: a combo with three columns, a combo tree of farms,
// fields and crop zones, and a key box that selects by key in each. A
// function per control, so that more lists can join the page.

namespace {

void watch(zelEventLog *log, zelRecordCombo *list, const QString &name)
{
    list->setObjectName(name);
    log->Watch(list, name);
    // What was chosen, beside the event itself.
    QObject::connect(list, &zelRecordCombo::Changed, log, [log, list, name] {
        const auto record = list->SelectedRecord();
        log->Say(
            name + QStringLiteral(" holds ") +
            (record ? record->Key() + QStringLiteral(" (") +
                          QString(record->Data()).replace(QLatin1Char('\t'), QLatin1String(" | ")) +
                          QLatin1Char(')')
                    : QStringLiteral("nothing")));
    });
}

zelCombo *addCombo(QVBoxLayout *layout, zelEventLog *log)
{
    auto *combo = new zelCombo;
    watch(log, combo, QStringLiteral("cboFields"));
    combo->SetPrefix(QStringLiteral("Field"));
    combo->SetPrefixColon(true);
    combo->SetPrefixWidth(1200);
    combo->SetEnabled(true);
    // Left, centre and right; the first width in pixels, the second in twips.
    combo->SetColumns(QStringLiteral("<Field~120\t|Crop~1500\t>Area ha"));
    combo->BeginUpdate();
    const struct
    {
        const char *key, *data;
    } rows[] = {{"F01", "North meadow\tWinter wheat\t12.40"},
                {"F02", "Mill field\tMaize\t8.75"},
                {"F03", "Long acre\tRapeseed\t21.10"},
                {"F04", "Brook side\tSugar beet\t4.05"}};
    for (const auto &r : rows)
        combo->AddItem(QString::fromLatin1(r.key), QString::fromLatin1(r.data));
    combo->EndUpdate();
    combo->SelectItem(QStringLiteral("F02"));
    layout->addWidget(combo);
    return combo;
}

zelComboTree *addComboTree(QVBoxLayout *layout, zelEventLog *log)
{
    auto *tree = new zelComboTree;
    watch(log, tree, QStringLiteral("ctrZones"));
    tree->SetPrefix(QStringLiteral("Crop zone"));
    tree->SetPrefixColon(true);
    tree->SetPrefixWidth(1200);
    tree->SetColumns(QStringLiteral("<Name"));
    for (int farm = 1; farm <= 2; ++farm) {
        const QString f = QStringLiteral("farm%1").arg(farm);
        tree->AddItem(QString(), f, QStringLiteral("Farm %1").arg(farm), {}, {},
                      QStringLiteral("Farm"));
        for (int field = 1; field <= 3; ++field) {
            const QString fd = f + QStringLiteral(".field%1").arg(field);
            // The third field of each farm is fallow: shown, not to be chosen.
            tree->AddItem(f, fd, QStringLiteral("Field %1").arg(field), {}, {},
                          QStringLiteral("Field"), field != 3, farm == 1);
            for (int zone = 1; zone <= 2; ++zone)
                tree->AddItem(fd, fd + QStringLiteral(".zone%1").arg(zone),
                              QStringLiteral("Crop zone %1").arg(zone), {}, {},
                              zone == 1 ? QStringLiteral("CropZone")
                                        : QStringLiteral("PolygonYellow"),
                              true, false);
        }
    }
    tree->SelectItem(QStringLiteral("farm1.field1.zone2"));
    layout->addWidget(tree);
    return tree;
}

// A key, and a button per list that selects it there.
void addKeyBox(QVBoxLayout *layout, const QList<zelRecordCombo *> &lists, zelEventLog *log)
{
    auto *row = new QHBoxLayout;
    auto *key = new QLineEdit;
    key->setObjectName(QStringLiteral("txtKey"));
    key->setPlaceholderText(QStringLiteral("Key, e.g. F03 or farm1.field2.zone1"));
    row->addWidget(key);
    for (zelRecordCombo *list : lists) {
        auto *button = new QPushButton(QStringLiteral("SelectItem in ") + list->objectName());
        QObject::connect(button, &QPushButton::clicked, list, [list, key, log] {
            const bool found = list->SelectItem(key->text());
            log->Say(list->objectName() + QStringLiteral(".SelectItem(\"") + key->text() +
                     QStringLiteral("\") = ") +
                     (found ? QStringLiteral("true") : QStringLiteral("false")));
        });
        row->addWidget(button);
    }
    layout->addLayout(row);
}

QWidget *makePage(zelEventLog *log)
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    QList<zelRecordCombo *> lists{addCombo(layout, log), addComboTree(layout, log)};
    addKeyBox(layout, lists, log);
    layout->addStretch();
    return page;
}

const zelGalleryPageRegistrar registrar(60, QStringLiteral("Record lists"), makePage);

} // namespace
