#include "zelGallery.h"

#include "fields/zelColorPicker.h"
#include "legend/zelClassifier.h"
#include "legend/zelRangeEditor.h"
#include "legend/zelValueEditor.h"

#include <QComboBox>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

#include <memory>
#include <random>

// The legend editors: a range editor of elevation classes and a value editor
// of land-use classes with their colours. Every Changed goes to the event
// log with what the legend holds afterwards; Ctrl+Z and Ctrl+Shift+Z undo and
// redo the user's edits. A function per part, so that more can join.

namespace {

quint32 rgb(int r, int g, int b)
{
    return quint32(r) | quint32(g) << 8 | quint32(b) << 16;
}

// The row of classification controls (method, class count, colour ramp)
// that fill the range editor goes here, above it.
QHBoxLayout *addClassificationRow(QVBoxLayout *layout)
{
    auto *row = new QHBoxLayout;
    row->setObjectName(QStringLiteral("classificationRow"));
    layout->addLayout(row);
    return row;
}

zelRangeEditor *addRangeEditor(QVBoxLayout *layout, zelEventLog *log)
{
    auto *box = new QGroupBox(QStringLiteral("Elevation (m): zelRangeEditor"));
    auto *inner = new QVBoxLayout(box);
    auto *ranges = new zelRangeEditor;
    ranges->setObjectName(QStringLiteral("rngElevation"));
    ranges->SetShowLabel(true);
    ranges->SetSrcFormat(QStringLiteral("#,##0"));
    ranges->SetDstFormat(QStringLiteral("0.0"));
    // Breaks from the lowest up: each Create ends the range below the open
    // top. An empty editor's first range is open at both ends, so the first
    // break is made by a second Create.
    const struct
    {
        double upper;
        quint32 colour;
        const char *label;
    } classes[] = {
        {0, rgb(70, 130, 180), "Below sea level"}, {200, rgb(120, 180, 90), "Lowland"},
        {500, rgb(200, 210, 120), "Hills"},        {1000, rgb(190, 150, 90), "Uplands"},
        {2000, rgb(150, 110, 80), "Mountains"},
    };
    ranges->BeginUpdate();
    double value = 1;
    ranges->Create(classes[0].upper);
    for (const auto &c : classes)
        ranges->Create(c.upper, value++, false, c.colour, QString::fromLatin1(c.label));
    ranges->EndUpdate();
    if (auto top = ranges->MaxRange()) {
        top->SetColor(rgb(245, 245, 245));
        top->SetLabel(QStringLiteral("Peaks"));
        top->SetValue(value);
        ranges->RefreshItem(top->Key());
    }
    ranges->setMinimumHeight(220);
    inner->addWidget(ranges);
    layout->addWidget(box);
    log->Watch(ranges, ranges->objectName());
    QObject::connect(ranges, &zelLegendEditor::Changed, log, [ranges, log] {
        QStringList parts;
        for (const auto &r : ranges->Items())
            parts << QStringLiteral("%1..%2").arg(
                r->IsMin() ? QStringLiteral("min") : QString::number(r->Min()),
                r->IsMax() ? QStringLiteral("max") : QString::number(r->Max()));
        log->Say(QStringLiteral("  ranges: ") + parts.join(QStringLiteral(", ")));
    });
    return ranges;
}

// Elevations of a generated terrain: plains, a hill country and a mountain
// range, with some ground below sea level.
std::vector<double> elevations()
{
    std::mt19937 rng(11);
    std::normal_distribution<double> plains(120, 70), hills(650, 180), peaks(2100, 500);
    std::vector<double> v;
    for (int i = 0; i < 20000; ++i)
        v.push_back(i % 10 < 5 ? plains(rng) : i % 10 < 8 ? hills(rng) : peaks(rng));
    return v;
}

// The classifier's controls: the page opens with the elevations classed into
// the range editor, any change classes them again, and the log says how long
// that took.
void addClassifier(QHBoxLayout *row, zelRangeEditor *ranges, zelEventLog *log)
{
    auto *classifier = new zelClassifier(ranges);
    auto *method = new QComboBox;
    method->setObjectName(QStringLiteral("cboMethod"));
    method->addItems({QStringLiteral("Equal interval"), QStringLiteral("Quantile"),
                      QStringLiteral("Standard deviation"), QStringLiteral("Pretty"),
                      QStringLiteral("Natural breaks")});
    method->setCurrentIndex(classifier->Method());
    auto *count = new QSpinBox;
    count->setObjectName(QStringLiteral("spnClasses"));
    count->setRange(1, zel::zelMaxClasses);
    count->setValue(classifier->ClassCount());
    auto *from = new zelColorPicker, *to = new zelColorPicker;
    from->SetBackColor(classifier->StartColor());
    to->SetBackColor(classifier->EndColor());
    auto *classify = new QPushButton(QStringLiteral("Classify"));
    auto add = [row](const char *label, std::initializer_list<QWidget *> widgets) {
        row->addWidget(new QLabel(QString::fromLatin1(label)));
        for (QWidget *w : widgets)
            row->addWidget(w);
    };
    add("Method", {method});
    add("Classes", {count});
    add("Colours", {from, to, classify});
    row->addStretch();
    const auto data = std::make_shared<const std::vector<double>>(elevations());
    auto fill = [=] {
        classifier->SetMethod(method->currentIndex());
        classifier->SetClassCount(count->value());
        classifier->SetStartColor(from->BackColor());
        classifier->SetEndColor(to->BackColor());
        QElapsedTimer timer;
        timer.start();
        classifier->Fill(*ranges, *data);
        log->Say(QStringLiteral("classifier.Fill: %1 elevations into %2 ranges in %3 ms")
                     .arg(data->size())
                     .arg(ranges->Count())
                     .arg(timer.elapsed()));
    };
    QObject::connect(method, &QComboBox::currentIndexChanged, classifier, fill);
    QObject::connect(count, &QSpinBox::valueChanged, classifier, fill);
    QObject::connect(from, &zelColorPicker::Click, classifier, fill);
    QObject::connect(to, &zelColorPicker::Click, classifier, fill);
    QObject::connect(classify, &QPushButton::clicked, classifier, fill);
    fill();
}

zelValueEditor *addValueEditor(QVBoxLayout *layout, zelEventLog *log)
{
    auto *box = new QGroupBox(QStringLiteral("Land use: zelValueEditor"));
    auto *inner = new QVBoxLayout(box);
    auto *values = new zelValueEditor;
    values->setObjectName(QStringLiteral("valLandUse"));
    values->SetShowLabel(true);
    const struct
    {
        const char *source, *label;
        quint32 colour;
    } classes[] = {
        {"urban", "Built-up area", rgb(200, 60, 60)},
        {"arable", "Arable land", rgb(240, 220, 110)},
        {"grassland", "Pasture and meadow", rgb(150, 200, 100)},
        {"forest", "Forest", rgb(40, 120, 60)},
        {"wetland", "Wetland", rgb(120, 170, 190)},
        {"water", "Open water", rgb(60, 110, 200)},
    };
    int code = 10;
    for (const auto &c : classes) {
        values->Create(QString::fromLatin1(c.source), code, c.colour, QString::fromLatin1(c.label));
        code += 10;
    }
    values->setMinimumHeight(220);
    inner->addWidget(values);
    inner->addWidget(new QLabel(QStringLiteral(
        "Type a source into the <new> row; double-click a style cell for its colour.")));
    layout->addWidget(box);
    log->Watch(values, values->objectName());
    QObject::connect(values, &zelLegendEditor::Changed, log, [values, log] {
        log->Say(QStringLiteral("  entries: %1").arg(values->Count()));
    });
    return values;
}

QWidget *makePage(zelEventLog *log)
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    QHBoxLayout *row = addClassificationRow(layout);
    addClassifier(row, addRangeEditor(layout, log), log);
    addValueEditor(layout, log);
    return page;
}

const zelGalleryPageRegistrar registrar(80, QStringLiteral("Legend"), makePage);

} // namespace
