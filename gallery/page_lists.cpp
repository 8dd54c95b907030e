#include "zelGallery.h"

#include "lists/zelCombo.h"
#include "lists/zelComboTree.h"
#include "lists/zelTreeList.h"

#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

// The record lists: a combo with three columns, a combo tree of farms,
// fields and crop zones, and a key box that selects by key in each; a tree
// list of the same farms with its own depth buttons and key box. A
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

// Farms > fields > crop zones, with a painted header row, fallow fields that
// cannot be chosen, expansion by depth and selection by key.
zelTreeList *addTreeList(QVBoxLayout *layout, zelEventLog *log)
{
    auto *tree = new zelTreeList;
    tree->setObjectName(QStringLiteral("tlsFarms"));
    tree->SetColumns(QStringLiteral("<Holding~200\t>Area ha~80\t|Crop~110"));
    tree->AddItem(QString(), QStringLiteral("head"), QStringLiteral("Holding\tArea ha\tCrop"));
    tree->PaintHeaderCells();
    // The painted row is the header here.
    tree->SetHeaderVisible(false);
    struct Row
    {
        const char *parent, *key, *data, *image;
        bool enabled;
    };
    const Row rows[] = {
        {"", "F1", "Hillside Farm\t212.0\t", "Farm", true},
        {"F1", "F1.1", "North Field\t64.5\tWheat", "Field", true},
        {"F1.1", "F1.1.a", "Zone A\t40.0\tWheat", "CropZone", true},
        {"F1.1", "F1.1.b", "Zone B (wet)\t24.5\tWheat", "CropZone", true},
        {"F1", "F1.2", "Long Meadow\t88.0\tBarley", "Field", true},
        {"F1.2", "F1.2.a", "Zone A\t88.0\tBarley", "CropZone", true},
        {"F1", "F1.3", "Old Orchard (fallow)\t59.5\t", "Field", false},
        {"", "F2", "River Farm\t143.2\t", "Farm", true},
        {"F2", "F2.1", "Flood Plain\t91.2\tMaize", "Field", true},
        {"F2.1", "F2.1.a", "Zone A\t50.0\tMaize", "CropZone", true},
        {"F2.1", "F2.1.b", "Zone B\t41.2\tSoy", "CropZone", true},
        {"F2", "F2.2", "Bank Strip (set aside)\t52.0\t", "Field", false},
    };
    for (const Row &r : rows)
        tree->AddItem(QString::fromLatin1(r.parent), QString::fromLatin1(r.key),
                      QString::fromUtf8(r.data), QString(), QVariant(),
                      QString::fromLatin1(r.image), r.enabled);
    tree->SetExpandLevel(1);
    tree->setMinimumHeight(260);
    layout->addWidget(tree);
    log->Watch(tree, QStringLiteral("tlsFarms"));

    auto *bar = new QHBoxLayout;
    for (int depth = 0; depth <= 2; ++depth) {
        auto *expand = new QPushButton(QStringLiteral("ExpandLevel %1").arg(depth));
        expand->setObjectName(QStringLiteral("cmdExpand%1").arg(depth));
        QObject::connect(expand, &QPushButton::clicked, tree,
                         [tree, depth] { tree->SetExpandLevel(depth); });
        bar->addWidget(expand);
    }
    bar->addSpacing(20);
    auto *key = new QLineEdit(QStringLiteral("F2.1.b"));
    key->setObjectName(QStringLiteral("txtTreeKey"));
    key->setPlaceholderText(QStringLiteral("Key, e.g. F1.2.a"));
    auto *select = new QPushButton(QStringLiteral("SelectItem"));
    select->setObjectName(QStringLiteral("cmdTreeSelect"));
    QObject::connect(select, &QPushButton::clicked, tree, [tree, key, log] {
        const bool found = tree->SelectItem(key->text());
        log->Say(QStringLiteral("tlsFarms.SelectItem(\"%1\") = %2, SelectedKey \"%3\"")
                     .arg(key->text(), found ? QStringLiteral("True") : QStringLiteral("False"),
                          tree->SelectedKey()));
    });
    bar->addWidget(key);
    bar->addWidget(select);
    layout->addLayout(bar);
    return tree;
}

QWidget *makePage(zelEventLog *log)
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    QList<zelRecordCombo *> lists{addCombo(layout, log), addComboTree(layout, log)};
    addKeyBox(layout, lists, log);
    addTreeList(layout, log);
    layout->addStretch();
    return page;
}

const zelGalleryPageRegistrar registrar(60, QStringLiteral("Record lists"), makePage);

} // namespace
