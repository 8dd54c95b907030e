// Typed text in an input box of each data type. The first bytes choose the
// data type, Decimals, MaxLength, a range and illegal characters; the rest is
// typed. A number field ends up holding only what can make a number, and no
// field holds a typed illegal character.

#include "zelFuzzSupport.h"

#include "fields/zelInputBox.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static auto *box = new zelInputBox;
    static auto *txt = box->findChild<QLineEdit *>(QStringLiteral("txtInput"));
    zelfuzz::Bytes in(data, size);
    static const qint32 types[] = {2, 3, 4, 5, 8};
    box->SetDataType(types[in.Byte() % 5]);
    box->SetMaxLength(qint16(in.Byte() % 40));
    box->SetDecimals(qint16(in.Byte() % 8));
    const uint8_t flags = in.Byte();
    box->SetLimitValue(flags & 1);
    box->SetValueMin(flags & 2 ? in.Double() : double(int8_t(in.Byte())));
    box->SetValueMax(flags & 4 ? in.Double() : double(in.Byte()));
    box->SetIllegalChars(in.Text(in.Byte() % 4));
    const QString typed = in.Rest();
    // Typing starts in an empty field that Ctrl+Z cannot take back.
    txt->setText(QStringLiteral("x"));
    txt->setText(QString());

    zelfuzz::Type(txt, typed);
    const QString text = txt->text();
    for (const QChar c : box->IllegalChars())
        if (typed.contains(c))
            zelfuzz::Check(!text.contains(c), "an illegal character was typed");
    if (box->IsNumeric()) {
        for (const QChar c : text)
            zelfuzz::Check((c >= u'0' && c <= u'9') || c == u'.' || c == u'-',
                           "a number field took a character that makes no number");
        zelfuzz::Check(text.count(u'-') <= 1 && text.count(u'.') <= (box->Decimals() > 0),
                       "a number field took a second sign or decimal point");
    }
    box->SetValue(box->Value()); // what leaving the field does
    (void)box->FormatString();
    return 0;
}
