// Every class the factory registers, reached the way a script or a form
// designer reaches it: each property by name, the property store's round
// trip, corrupt stores, wrong-typed and absurd values by name, and the range
// refusals a host can see. The classes and their properties come from the
// factory and the classes' own descriptions; the values are chosen here.

#include "core/zelProperties.h"
#include "platform/zelLateBinding.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPropertyBag.h"
#include "zelFakePlatform.h"
#include "zelTestData.h"

#include <QJsonObject>
#include <QMetaMethod>
#include <QMetaProperty>
#include <QPoint>
#include <QSignalSpy>
#include <QTest>
#include <QWidget>

namespace {

using zel::Kind;

struct Property
{
    QString name;
    Kind kind = Kind::Variant;
    bool writable = false;
    const char *key = nullptr; // persisted and read back on load
    QVariant def;              // the described default, tried last
    bool placedApart = false;  // a newly placed object stores it on purpose
};

// Members the library's own classes declare, not those of Qt's bases.
int firstOwn(const QMetaObject *mo, bool methods)
{
    const QMetaObject *base = mo;
    while (base->superClass() && QByteArray(base->superClass()->className()).startsWith("zel"))
        base = base->superClass();
    const QMetaObject *qt = base->superClass();
    return qt ? (methods ? qt->methodCount() : qt->propertyCount()) : 0;
}

Kind kindOf(QMetaType t)
{
    static const QHash<int, Kind> kinds{
        {QMetaType::QString, Kind::String}, {QMetaType::Bool, Kind::Bool},
        {QMetaType::Short, Kind::Int16},    {QMetaType::Int, Kind::Int32},
        {QMetaType::Float, Kind::Single},   {QMetaType::Double, Kind::Double},
        {QMetaType::UInt, Kind::Colour},    {QMetaType::QDateTime, Kind::Date}};
    return kinds.value(t.id(), Kind::Variant);
}

// A class's properties: its description where it has one, else its own
// meta-object properties.
QList<Property> propertiesOf(QObject *o)
{
    QList<Property> list;
    if (auto *host = dynamic_cast<zelPropertyHost *>(o)) {
        for (const zel::zelPropertyDecl &d : host->Properties().Entries()) {
            if (d.Has(zel::WriteOnly))
                continue;                       // a stored key, not a property
            const bool loaded = d.Key && d.Set; // a key read but not applied shows here
            list.append({QString::fromLatin1(d.Name), d.Type, bool(d.Set), loaded ? d.Key : nullptr,
                         d.DefaultValue, d.Has(zel::PlacedApart)});
        }
        return list;
    }
    const QMetaObject *mo = o->metaObject();
    for (int i = firstOwn(mo, false); i < mo->propertyCount(); ++i) {
        const QMetaProperty p = mo->property(i);
        // An object reference takes the host's own objects only: no value to try.
        const bool object = p.metaType().flags() & QMetaType::PointerToQObject;
        list.append({QString::fromLatin1(p.name()),
                     kindOf(p.metaType()),
                     p.isWritable() && !object,
                     nullptr,
                     {}});
    }
    return list;
}

// Values worth trying for a kind, first those most properties take.
QVariantList candidates(Kind kind, const QVariant &current)
{
    if (kind == Kind::Variant && current.isValid())
        kind = kindOf(current.metaType());
    const QVariantList whole{12, 3, 2, 1, 0, 1500}, real{2.5, 1.0, 0.0, 12.0};
    const QMap<Kind, QVariantList> values{
        {Kind::String, {QStringLiteral("Probe"), QStringLiteral("12")}},
        {Kind::Bool, {!current.toBool()}},
        {Kind::Int16, whole},
        {Kind::Int32, whole},
        {Kind::Single, real},
        {Kind::Double, real},
        {Kind::Colour, {0x123456u, 0x8000000Fu}},
        {Kind::Date,
         {QDateTime(QDate(2021, 3, 4), QTime(0, 0)), QDateTime(QDate(1899, 12, 30), QTime(6, 0))}}};
    return values.value(kind, {QStringLiteral("Probe"), 2, true});
}

bool same(const QVariant &a, const QVariant &b)
{
    if (a.metaType() == QMetaType::fromType<QDateTime>() ||
        b.metaType() == QMetaType::fromType<QDateTime>())
        return a.toDateTime() == b.toDateTime();
    return zelSameAsDefault(a, b);
}

// An object made by its program identifier on a form that owns it.
struct Subject
{
    QWidget form;
    QObject *o = nullptr;
    QString className;

    explicit Subject(const QString &progId) : o(zel::CreateObject(progId, &form))
    {
        if (!o)
            qFatal("no class answers to %s", qPrintable(progId));
        // Values a designer stores read back as written there only.
        if (o->metaObject()->indexOfClassInfo("DesignTimeProperties") >= 0)
            zel::SetUserMode(&form, false);
        className = QString::fromLatin1(o->metaObject()->className());
        if (auto *w = qobject_cast<QWidget *>(o))
            w->resize(300, 60);
        if (auto *p = dynamic_cast<zelPersistable *>(o))
            p->InitProperties();
    }
    // Persisted through its description; the grid keeps its own store keys.
    zelPersistable *persistable() const { return dynamic_cast<zelPropertyHost *>(o); }
    // What the object holds: through its description where a getter computes
    // from other properties (a pane's CouldFinish), else by name.
    QVariant get(const QString &name) const
    {
        if (auto *host = dynamic_cast<zelPropertyHost *>(o))
            if (const zel::zelPropertyDecl *d = host->Properties().Find(name))
                return d->Get(o);
        return zel::GetProperty(o, name);
    }
};

// Sets a property by name to the first value tried that it takes and reads
// back; answers that value, or nothing.
QVariant chooseValue(Subject &s, const Property &p)
{
    const QVariantList tried = candidates(p.kind, s.get(p.name)) << p.def;
    for (const QVariant &v : tried) {
        if (!v.isValid() || same(s.get(p.name), v))
            continue;
        const int errors = zelLoggedErrors();
        zel::SetProperty(s.o, p.name, v);
        if (zelLoggedErrors() == errors && same(s.get(p.name), v))
            return v;
    }
    return {};
}

// Sets each writable persisted property in declaration order.
void chooseValues(Subject &s)
{
    for (const Property &p : propertiesOf(s.o))
        if (p.writable && p.key)
            chooseValue(s, p);
    zelCaptureLogger::errors.clear(); // the values refused on the way
}

QVariantList garbage()
{
    return {QVariantMap{{"a", 1}}, "garbage", 1e12, -1e12, QPoint(3, 4)};
}

// Whether a stored or written value cannot be read as the kind at all: none
// of the garbage is a whole number in range or a date, only the doubles are
// numbers, and only a map or a point has no text.
bool mismatch(Kind kind, const QVariant &v)
{
    const int type = v.metaType().id();
    if (kind == Kind::Variant || kind == Kind::String)
        return kind == Kind::String &&
               (type == QMetaType::QVariantMap || type == QMetaType::QPoint);
    return type != QMetaType::Double ||
           (kind != Kind::Bool && kind != Kind::Single && kind != Kind::Double);
}

void addClasses()
{
    QTest::addColumn<QString>("progId");
    for (const QString &id : zel::RegisteredProgIds())
        if (id.startsWith(QLatin1String("zelCtrl.")))
            QTest::newRow(qPrintable(id)) << id;
}

} // namespace

class tst_Classes : public QObject
{
    Q_OBJECT

private slots:
    void propertiesByName_data() { addClasses(); }
    void persistenceRoundTrip_data() { addClasses(); }
    void absurdValues_data() { addClasses(); }
    void propertiesByName()
    {
        QFETCH(QString, progId);
        zelTestScope scope;
        Subject s(progId);
        const QList<Property> props = propertiesOf(s.o);
        // An interface class keeps nothing; one may declare no property at all.
        const bool inert = s.o->metaObject()->indexOfClassInfo("Interface") >= 0;
        QVERIFY(!props.isEmpty() || inert);
        for (const Property &p : props)
            QVERIFY2(zel::GetProperty(s.o, p.name.toUpper()).isValid() || p.kind == Kind::Variant,
                     qPrintable(p.name));
        for (const Property &p : props) {
            if (!p.writable || inert)
                continue;
            Subject fresh(progId);
            const QVariant v = chooseValue(fresh, p);
            QVERIFY2(v.isValid(), qPrintable(p.name + " takes none of the values tried"));
            zelCaptureLogger::errors.clear(); // the values refused on the way
            // In any letter case, through the library's door and Qt's own.
            QVERIFY(zel::SetProperty(fresh.o, p.name.toLower(), v));
            QVERIFY2(same(fresh.o->property(p.name.toLatin1()), v), qPrintable(p.name));
            QCOMPARE(zelLoggedErrors(), 0);
            // Given what it holds, a setter neither marks the store nor
            // refreshes; a data type is set anew on every write.
            QSignalSpy marks(fresh.o, SIGNAL(PropertyChanged(QString)));
            QVERIFY(zel::SetProperty(fresh.o, p.name, fresh.o->property(p.name.toLatin1())));
            QVERIFY2(marks.isEmpty() || p.name == "DataType" || p.name == "ReadOnly",
                     qPrintable(p.name));
        }
        // Where a class publishes dispatch identifiers, each names a member of
        // the class, and no two members share one.
        const QMetaObject *mo = s.o->metaObject();
        QSet<QByteArray> members, values;
        for (int i = 0; i < mo->propertyCount(); ++i)
            members << mo->property(i).name() << QByteArray("Property.") + mo->property(i).name();
        for (int i = 0; i < mo->methodCount(); ++i) // an indexed property is its getter or setter
            members << mo->method(i).name() << mo->method(i).name().mid(3);
        for (int i = 0; i < mo->classInfoCount(); ++i) {
            const QByteArray name = mo->classInfo(i).name();
            if (!name.startsWith("DispId."))
                continue;
            QVERIFY2(members.contains(name.mid(7)), name.constData());
            QVERIFY2(!values.contains(mo->classInfo(i).value()), name.constData());
            values.insert(mo->classInfo(i).value());
        }
    }

    void persistenceRoundTrip()
    {
        QFETCH(QString, progId);
        zelTestScope scope;
        Subject a(progId);
        if (!a.persistable())
            QSKIP("not persisted by a host");
        zelJsonPropertyBag fresh;
        a.persistable()->WriteProperties(fresh);
        chooseValues(a);
        const qsizetype messages = scope.fake().messages.size();
        zelJsonPropertyBag written;
        a.persistable()->WriteProperties(written);
        // What a fresh object makes of a store: the first property it lost.
        auto lostFrom = [&](zelPropertyBag &bag) {
            Subject b(progId);
            b.persistable()->ReadProperties(bag);
            for (const Property &p : propertiesOf(a.o))
                if (p.key && !same(a.get(p.name), b.get(p.name)))
                    return p.name + ": " + a.get(p.name).toString() + " came back as " +
                           b.get(p.name).toString();
            return QString();
        };
        // Through JSON values, as a file holds them.
        zelJsonPropertyBag reread(written.Object());
        QCOMPARE(lostFrom(reread), QString());
        QCOMPARE(zelLoggedErrors(), 0);
        // A host's store names each key as the property it holds, and a newly
        // placed object stores only what has no default.
        const QJsonObject keys = written.Object();
        for (auto it = keys.begin(); it != keys.end(); ++it)
            QVERIFY2(a.get(it.key()).isValid() || fresh.Object().contains(it.key()),
                     qPrintable(it.key()));
        zelMemoryPropertyBag byHand;
        QJsonObject placed = fresh.Object();
        for (const Property &p : propertiesOf(a.o)) {
            if (p.placedApart && p.key)
                placed.remove(QString::fromLatin1(p.key));
            QVERIFY2(!placed.contains(p.name) || !p.def.isValid(), qPrintable(p.name));
            if (p.key)
                byHand.SetValue(p.name, a.get(p.name));
        }
        QCOMPARE(lostFrom(byHand), QString());

        // Missing keys: a fresh object that reads an empty store holds what a
        // newly placed one holds.
        Subject c(progId);
        zelJsonPropertyBag empty, back;
        c.persistable()->ReadProperties(empty);
        c.persistable()->WriteProperties(back);
        QCOMPARE(back.Object(), placed);
        QCOMPARE(zelLoggedErrors(), 0);

        // Corrupt stores: each key in turn holds what no property of its kind
        // reads; the load logs it, keeps the default, loads the other keys
        // and leaves an object that saves and loads again.
        zelMemoryPropertyBag stored;
        a.persistable()->WriteProperties(stored);
        const QString source = a.className + QStringLiteral(".UserControl_ReadProperties");
        for (const Property &p : propertiesOf(a.o)) {
            if (!p.key)
                continue;
            for (const QVariant &g : garbage()) {
                const QString what =
                    p.name + QStringLiteral(" stored as ") + QString::fromLatin1(g.typeName());
                zelMemoryPropertyBag bag = stored;
                bag.SetValue(QString::fromLatin1(p.key), g);
                Subject s(progId);
                const int before = zelLoggedErrors(source);
                s.persistable()->ReadProperties(bag);
                if (mismatch(p.kind, g)) {
                    QVERIFY2(zelLoggedErrors(source) > before, qPrintable(what + " is not logged"));
                    QVERIFY2(same(s.get(p.name), c.get(p.name)),
                             qPrintable(what + " left no default"));
                }
                for (const Property &q : propertiesOf(s.o))
                    if (q.key && q.name != p.name && q.kind == Kind::String)
                        QVERIFY2(same(s.get(q.name), a.get(q.name)),
                                 qPrintable(what + " lost " + q.name));
                zelMemoryPropertyBag again;
                s.persistable()->WriteProperties(again);
                s.persistable()->ReadProperties(stored);
                QVERIFY2(same(s.get(p.name), a.get(p.name)), qPrintable(what));
            }
        }
        QCOMPARE(scope.fake().messages.size(), messages);
        // Stores a setter refuses part of (every number 1, one of them -1):
        // what a load makes of one saves and loads again as itself.
        auto number = [](Kind k) { return k == Kind::Int16 || k == Kind::Int32; };
        for (const Property &p : propertiesOf(a.o)) {
            if (!p.key || !number(p.kind))
                continue;
            zelMemoryPropertyBag bag = stored;
            for (const Property &q : propertiesOf(a.o))
                if (q.key && number(q.kind))
                    bag.SetValue(QString::fromLatin1(q.key), q.name == p.name ? -1 : 1);
            Subject s(progId), r(progId);
            s.persistable()->ReadProperties(bag);
            zelJsonPropertyBag once, twice;
            s.persistable()->WriteProperties(once);
            zelJsonPropertyBag reread(once.Object());
            r.persistable()->ReadProperties(reread);
            r.persistable()->WriteProperties(twice);
            QVERIFY2(twice.Object() == once.Object(), qPrintable(p.name + " -1 among ones"));
        }
    }

    void absurdValues()
    {
        QFETCH(QString, progId);
        zelTestScope scope;
        scope.fake().colorDialogAccepts = false;
        Subject s(progId);
        const QVariantList absurd{QVariant(),   QString(100000, QLatin1Char('x')),
                                  -1,           -2147483647 - 1,
                                  2147483647,   1e300,
                                  -1e300,       true,
                                  QPoint(3, 4), "abc"};
        // With a late-bound conversion of its own, a value that is no value of
        // the property's kind at all is logged once.
        const bool converts = dynamic_cast<zelPropertyHost *>(s.o);
        const QVariantList wrong = garbage();
        for (const Property &p : propertiesOf(s.o)) {
            if (!p.writable)
                continue;
            for (const QVariant &v : absurd + wrong) {
                const QVariant before = s.get(p.name);
                const QString let = s.className + "." + p.name + " Let";
                const int errors = zelLoggedErrors(let);
                const qsizetype shown = scope.fake().messages.size();
                zel::SetProperty(s.o, p.name, v);
                if (converts && wrong.contains(v) && mismatch(p.kind, v))
                    QVERIFY2(
                        zelLoggedErrors(let) == errors + 1 && scope.fake().messages.size() == shown,
                        qPrintable(p.name + " given " + v.typeName() + " is not logged alone"));
                // Refused: logged and kept. Taken: it reads back as it stays.
                if (zelLoggedErrors(let) > errors) {
                    QVERIFY2(same(s.get(p.name), before),
                             qPrintable(p.name + " changed though refused"));
                } else {
                    const QVariant now = s.get(p.name);
                    zel::SetProperty(s.o, p.name, now);
                    QVERIFY2(same(s.get(p.name), now) && zelLoggedErrors(let) == errors,
                             qPrintable(p.name + " does not read back what it took"));
                }
            }
        }
        // Methods called by name with absurd arguments.
        const QMetaObject *mo = s.o->metaObject();
        for (int i = firstOwn(mo, true); i < mo->methodCount(); ++i) {
            const QMetaMethod m = mo->method(i);
            if (m.methodType() != QMetaMethod::Method)
                continue;
            for (const QVariant &v : absurd)
                zel::CallByName(s.o, QString::fromLatin1(m.name()),
                                QVariantList(m.parameterCount(), v));
        }
        // Names it does not have are the usual logged refusal.
        zelCaptureLogger::errors.clear();
        QVERIFY(!zel::SetProperty(s.o, QStringLiteral("NoSuchProperty"), 1));
        zel::CallByName(s.o, QStringLiteral("NoSuchMethod"), {1});
        QCOMPARE(zelCaptureLogger::errors.size(), 2);
        for (const QVariantList &e : std::as_const(zelCaptureLogger::errors))
            QCOMPARE(e.value(3).toInt(), int(zelError::NotSupported));
        if (auto *w = qobject_cast<QWidget *>(s.o))
            w->resize(200, 40);
        for (const Property &p : propertiesOf(s.o))
            QVERIFY2(s.get(p.name).isValid(), qPrintable(p.name));
    }

    void refusals_data()
    {
        zelColumns<QString, QString, QVariant, int>({"progId", "name", "value", "error"});
        auto row = [](const char *cls, const char *name, const QVariant &v, int error) {
            QTest::newRow(qPrintable(QStringLiteral("%1 %2 %3").arg(cls, name, v.toString())))
                << QStringLiteral("zelCtrl.") + cls << QString(name) << v << error;
        };
        row("zelInputBox", "PrefixAlignment", 9, 380);
        row("zelInputBox", "SuffixAlignment", -1, 380);
        row("zelInputBox", "MaxLength", -1, 380);
        row("zelInputBox", "MaxLength", 70000, 6);
        row("zelDateTime", "DataType", "date", 13);
        row("zelColorPicker", "BackColor", 0x01000000, 380);
        row("zelColorPicker", "BackColor", QVariant::fromValue(QColor()), 380);
        row("zelPrpButtons", "ButtonHeight", -1, 380);
        row("zelStdButtons", "ButtonWidth", 2000000000, 380);
        row("zelPrpButtons", "ButtonWidth", 100001, 380);
        row("zelGridList", "HighlightSelection", 3, 380);
        row("zelGridList", "BorderStyle", 2, 380);
    }

    void refusals()
    {
        const auto [progId, name, value] =
            zelFetch<QString, QString, QVariant>({"progId", "name", "value"});
        zelTestScope scope;
        Subject s(progId);
        auto *w = qobject_cast<QWidget *>(s.o);
        const QSize size = w->size();
        const QVariant before = s.get(name);
        zel::SetProperty(s.o, name, value);
        QCOMPARE(zelLoggedErrors(s.className + "." + name + " Let"), 1);
        QTEST(zelCaptureLogger::errors.at(0).at(3).toInt(), "error");
        QCOMPARE(s.get(name), before);
        QCOMPARE(w->size(), size);
    }
};

QTEST_MAIN(tst_Classes)
#include "tst_classes.moc"
