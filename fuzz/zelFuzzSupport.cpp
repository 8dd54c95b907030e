#include "zelFuzzSupport.h"

#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QApplication>
#include <QColor>
#include <QDateTime>
#include <QKeyEvent>
#include <QRect>

#include <bit>
#include <cstdio>
#include <cstdlib>

namespace {

class QuietPlatform : public zel::Platform
{
public:
    void MessageBox(const QString &, const QString &, QWidget *) override {}
    void Beep() override {}
    void SendTab(QWidget *) override {}
    QVariant ReadSetting(zel::SettingsScope, const QString &key, const QVariant &def) override
    {
        // No debug boxes, traces or tracking: the inputs run by the million.
        // clang-format off
        return key == QLatin1String("ErrorLogger") ? QVariant(QStringLiteral("zelFuzz.Logger"))
                                                   : key.startsWith(u"Con") ? QVariant(0) : def;
        // clang-format on
    }
    bool ChooseColor(quint32 &, QWidget *) override { return false; }
    QString ChooseOpenFile(const QString &, const QString &, QWidget *) override { return {}; }
};

class Logger : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    Q_INVOKABLE void ErrorMessage(const QString &, const QString &, const QString &, qint32,
                                  const QString &, const QString &, const QString &)
    {}
    Q_INVOKABLE void TraceMessage(const QString &, const QString &, const QString &,
                                  const QString &, const QString &)
    {}
};

std::vector<zelPersistable *> controls; // the objects that keep properties

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("ZEL_USER_SETTINGS", "/nonexistent/zelfuzz-user.ini");
    qputenv("ZEL_MACHINE_SETTINGS", "/nonexistent/zelfuzz-machine.ini");
    new QApplication(*argc, *argv);
    zel::SetPlatform(std::make_unique<QuietPlatform>());
    zel::RegisterProgId(QStringLiteral("zelFuzz.Logger"),
                        [](QObject *parent) { return new Logger(parent); });
    // Made before the first input, so they are no leak of it; widgets have no parent.
    for (const QString &id : zel::RegisteredProgIds())
        if (id.startsWith(QLatin1String("zelCtrl."))) {
            zelfuzz::objects.push_back(zel::CreateObject(id, qApp));
            if (auto *p = dynamic_cast<zelPersistable *>(zelfuzz::objects.back()))
                controls.push_back(p);
        }
    return 0;
}

namespace zelfuzz {

void Reset(zelPersistable *p)
{
    zelMemoryPropertyBag none;
    p->InitProperties();
    p->ReadProperties(none);
}

void ReadIntoControl(zelPropertyBag &bag, size_t pick)
{
    zelPersistable *p = controls[pick % controls.size()];
    Reset(p);
    p->ReadProperties(bag);
    zelJsonPropertyBag saved, again;
    p->WriteProperties(saved);
    Reset(p);
    p->ReadProperties(saved);
    p->WriteProperties(again);
    Check(saved.Object() == again.Object(), "a saved control reads back differently");
}

void Check(bool ok, const char *what)
{
    if (!ok) {
        std::fprintf(stderr, "zelfuzz: %s\n", what);
        std::abort();
    }
}

void Type(QWidget *w, const QString &text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        QString chars(text.at(i));
        if (text.at(i).isHighSurrogate() && i + 1 < text.size())
            chars += text.at(++i);
        const char16_t c = chars.at(0).unicode();
        int key = c < 128 ? QChar(c).toUpper().unicode() : Qt::Key_unknown;
        Qt::KeyboardModifiers mods;
        // clang-format off
        static const int editing[] = {0, Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_Left,
                                      Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_Left,
                                      Qt::Key_A, 0, 0, 0, 0, Qt::Key_Return, Qt::Key_Z};
        // clang-format on
        if (c < sizeof editing / sizeof *editing) {
            key = editing[c];
            mods = c == 7 ? Qt::ShiftModifier : (c == 8 || c == 14) ? Qt::ControlModifier : mods;
            chars = c == 13 ? QStringLiteral("\r") : QString();
        }
        if (key == 0)
            continue;
        // Presses only: the fields act on them, and it halves the events.
        QKeyEvent press(QEvent::KeyPress, key, mods, chars);
        QCoreApplication::sendEvent(w, &press);
    }
}

double Bytes::Double()
{
    quint64 bits = 0;
    for (int i = 0; i < 64; i += 8)
        bits |= quint64(Byte()) << i;
    return std::bit_cast<double>(bits);
}

QString Bytes::Text(size_t max)
{
    const size_t n = std::min(max, size_t(m_end - m_p));
    const QString s = QString::fromUtf8(reinterpret_cast<const char *>(m_p), qsizetype(n));
    m_p += n;
    return s;
}

QVariant Bytes::Variant()
{
    const auto small = [this] { return int(int8_t(Byte())); };
    // clang-format off
    switch (Byte() % 20) {
    case 0: return {};
    case 1: return bool(Byte() & 1);
    case 2: return small();
    case 3: return qint32(Byte() | Byte() << 8 | Byte() << 16 | uint32_t(Byte()) << 24);
    case 4: return qint64(Byte()) << 56 | qint64(Byte()) << 8 | Byte();
    case 5: return Double();
    case 6: return float(small()) / 4;
    case 7: return Text(Byte() % 24);
    case 8: return QString::number(Double());
    case 9: return QString::number(small());
    case 10: return Text(Byte() % 16).toUtf8();
    case 11: return QDateTime(QDate(small() + 2000, Byte() % 13, Byte() % 32), QTime(Byte() % 25, 0));
    case 12: return QTime(Byte() % 24, Byte() % 60);
    case 13: return QVariantList{Variant(), Variant()};
    case 14: return QVariantMap{{Text(4), Variant()}};
    case 15: return QStringList{Text(8), Text(8)};
    case 16: return QPoint(small(), small());
    case 17: return QRect(small(), small(), small(), small());
    case 18: return QColor(Byte(), Byte(), Byte());
    default: return QVariant::fromValue(objects.empty() ? nullptr : objects[Byte() % objects.size()]);
    }
    // clang-format on
}

} // namespace zelfuzz

#include "zelFuzzSupport.moc"
