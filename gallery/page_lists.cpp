// The "Record lists" page: one function per control builds its demo, and
// the page stacks them.

#include "zelGallery.h"

#include "lists/zelTreeList.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

// Farms > fields > crop zones, with a painted header row, fallow fields that
// cannot be chosen, expansion by depth and selection by key.
QWidget *treeListDemo(zelEventLog *log)
{
    auto *box = new QWidget;
    auto *layout = new QVBoxLayout(box);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(new QLabel(QStringLiteral("Tree list: farms, fields and crop zones")));

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
    key->setObjectName(QStringLiteral("txtKey"));
    key->setPlaceholderText(QStringLiteral("Key, e.g. F1.2.a"));
    auto *select = new QPushButton(QStringLiteral("SelectItem"));
    select->setObjectName(QStringLiteral("cmdSelect"));
    QObject::connect(select, &QPushButton::clicked, tree, [tree, key, log] {
        const bool found = tree->SelectItem(key->text());
        log->Say(QStringLiteral("tlsFarms.SelectItem(\"%1\") = %2, SelectedKey \"%3\"")
                     .arg(key->text(), found ? QStringLiteral("True") : QStringLiteral("False"),
                          tree->SelectedKey()));
    });
    bar->addWidget(key);
    bar->addWidget(select);
    layout->addLayout(bar);
    return box;
}

QWidget *makePage(zelEventLog *log)
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->addWidget(treeListDemo(log));
    layout->addStretch();
    return page;
}

const zelGalleryPageRegistrar registrar(60, QStringLiteral("Record lists"), makePage);

} // namespace
