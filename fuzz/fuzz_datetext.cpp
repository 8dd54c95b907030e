// Date text in several locales: read as a date by the conversions and by the
// date field, typed into the date field, and date values turned into dates
// and back. Typing keeps the text to digits and the entry separator, ten
// characters at most; a date read from text reads back from its short form.

#include "zelFuzzSupport.h"

#include "core/zelError.h"
#include "fields/zelDateTime.h"
#include "fields/zelOleDate.h"

#include <QDateTimeEdit>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static auto *field = new zelDateTime;
    static auto *txt = field->findChild<QLineEdit *>(QStringLiteral("txtInput"));
    static auto *picker = field->findChild<QDateTimeEdit *>(QStringLiteral("pvDate"));
    static const char *locales[] = {"en_US", "de_DE", "en_GB", "fr_FR", "sv_SE", "ja_JP", "C"};
    zelfuzz::Bytes in(data, size);
    const QLocale locale(QString::fromLatin1(locales[in.Byte() % 7]));
    QLocale::setDefault(locale);
    const bool timeInput = in.Byte() & 1;
    const double ole = in.Double();
    const QString text = in.Rest();

    try {
        const QDateTime dt = zel::OleToDateTime(ole);
        // Values between -1 and 0 mean the same as their positive twins, so
        // the check goes from the date: it reads back to itself.
        zelfuzz::Check(zel::OleToDateTime(zel::DateTimeToOle(dt)) == dt,
                       "a date changed on its way back");
    } catch (const zelError &) {
    }
    const QDateTime read = zel::DateFromText(text, locale);
    if (read.isValid() && read.date() != zel::OleZeroDate().date())
        zelfuzz::Check(zel::DateFromText(zel::ShortDateText(read.date(), locale), locale) == read,
                       "a date does not read back from its short form");
    try {
        (void)zel::ToDateTime(text);
    } catch (const zelError &) {
    }

    field->SetTimeInput(timeInput);
    field->SetText(text); // the host's text is not checked, but must read safely
    (void)field->Value();
    field->SetText(QString());
    zelfuzz::Type(timeInput ? static_cast<QWidget *>(picker) : txt, text);
    if (!timeInput) {
        const QChar sep = zelDateEntryRuleFor(locale).Separator;
        zelfuzz::Check(txt->text().size() <= zelDateMaxTyped, "typing made a date text too long");
        for (const QChar c : txt->text())
            zelfuzz::Check((c >= u'0' && c <= u'9') || c == sep,
                           "typing put a stray character into a date");
    }
    field->SetValue(field->Value());
    return 0;
}
