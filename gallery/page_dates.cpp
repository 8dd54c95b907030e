#include "zelGallery.h"

#include "fields/zelDateTime.h"

#include <QDate>
#include <QTime>
#include <QVBoxLayout>

namespace {

zelDateTime *addField(QVBoxLayout *layout, zelEventLog *log, const QString &name,
                      const QString &prefix)
{
    auto *field = new zelDateTime;
    field->setObjectName(name);
    field->SetPrefix(prefix);
    field->SetPrefixColon(true);
    field->SetPrefixWidth(1800);
    layout->addWidget(field);
    log->Watch(field, name);
    return field;
}

QWidget *makePage(zelEventLog *log)
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);

    auto *start =
        addField(layout, log, QStringLiteral("dtSurveyStart"), QStringLiteral("Survey start"));
    start->SetValue(QDate(2026, 3, 15));

    auto *end = addField(layout, log, QStringLiteral("dtSurveyEnd"), QStringLiteral("Survey end"));
    end->SetSuffix(QStringLiteral("empty: not yet known"));
    end->SetSuffixParens(true);
    end->SetValue(QVariant());

    auto *stichtag =
        addField(layout, log, QStringLiteral("dtStichtag"), QStringLiteral("Stichtag"));
    stichtag->SetPrefixBold(true);
    stichtag->SetPrefixAlignment(0);
    stichtag->SetSuffix(QStringLiteral("Jahresende"));
    stichtag->SetSuffixParens(true);
    stichtag->SetValue(QDate(2025, 12, 31));

    auto *time =
        addField(layout, log, QStringLiteral("dtCaptureTime"), QStringLiteral("Capture time"));
    time->SetTimeInput(true);
    time->SetValue(QTime(8, 30));

    auto *uhrzeit = addField(layout, log, QStringLiteral("dtUhrzeit"), QStringLiteral("Uhrzeit"));
    uhrzeit->SetPrefixBold(true);
    uhrzeit->SetPrefixAlignment(0);
    uhrzeit->SetTimeInput(true);
    uhrzeit->SetSuffix(QStringLiteral("Ortszeit"));
    uhrzeit->SetSuffixParens(true);
    uhrzeit->SetValue(QTime(17, 45));

    auto *disabled =
        addField(layout, log, QStringLiteral("dtImported"), QStringLiteral("Imported on"));
    disabled->SetSuffix(QStringLiteral("disabled"));
    disabled->SetSuffixParens(true);
    disabled->SetValue(QDate(2024, 11, 2));
    disabled->SetEnabled(false);

    layout->addStretch();
    return page;
}

const zelGalleryPageRegistrar registrar(30, QStringLiteral("Date and time"), makePage);

} // namespace
