// Every registered class, reached by name the way a script would, survives
// wrong and absurd values on every property and method: no crash, no
// exception reaching the caller, and the object still answers afterwards.

#include "platform/zelLateBinding.h"
#include "platform/zelObjectFactory.h"
#include "zelFakePlatform.h"

#include <QMetaMethod>
#include <QMetaProperty>
#include <QPoint>
#include <QTest>
#include <QWidget>

namespace {

QVariantList absurdValues()
{
    return {QVariant(),
            QVariant(QStringLiteral("abc")),
            QVariant(QStringLiteral("maybe")),
            QVariant(-1),
            QVariant(0),
            QVariant(1e12),
            QVariant(-2147483647 - 1),
            QVariant(true),
            QVariant(QPoint(3, 4)),
            QVariant(QString(100000, QLatin1Char('x')))};
}

// Members that the library's own classes declare, not those of Qt's bases.
int firstOwn(const QMetaObject *mo, bool methods)
{
    const QMetaObject *base = mo;
    while (base->superClass() && QByteArray(base->superClass()->className()).startsWith("zel"))
        base = base->superClass();
    const QMetaObject *qt = base->superClass();
    return qt ? (methods ? qt->methodCount() : qt->propertyCount()) : 0;
}

} // namespace

class tst_Robustness : public QObject
{
    Q_OBJECT

private slots:
    void everyClassSurvivesAbsurdInput_data();
    void everyClassSurvivesAbsurdInput();
};

void tst_Robustness::everyClassSurvivesAbsurdInput_data()
{
    QTest::addColumn<QString>("progId");
    for (const QString &id : zel::RegisteredProgIds())
        if (id.startsWith(QLatin1String("zelCtrl.")))
            QTest::newRow(qPrintable(id)) << id;
}

void tst_Robustness::everyClassSurvivesAbsurdInput()
{
    QFETCH(QString, progId);
    zelTestScope scope;
    scope.fake().colorDialogAccepts = false;
    QWidget form; // owns the object
    QObject *const o = zel::CreateObject(progId, &form);
    QVERIFY(o);
    if (auto *w = qobject_cast<QWidget *>(o))
        w->resize(300, 100);
    const QMetaObject *mo = o->metaObject();

    for (int i = firstOwn(mo, false); i < mo->propertyCount(); ++i) {
        const QMetaProperty p = mo->property(i);
        if (!p.isWritable())
            continue;
        for (const QVariant &v : absurdValues())
            p.write(o, v);
    }
    for (int i = firstOwn(mo, true); i < mo->methodCount(); ++i) {
        const QMetaMethod m = mo->method(i);
        if (m.methodType() != QMetaMethod::Method)
            continue;
        for (const QVariant &v : absurdValues()) {
            QVariantList args;
            for (int a = 0; a < m.parameterCount(); ++a)
                args << v;
            zel::CallByName(o, QString::fromLatin1(m.name()), args);
        }
    }
    // Still alive and answering.
    for (int i = firstOwn(mo, false); i < mo->propertyCount(); ++i)
        mo->property(i).read(o);
    QVERIFY(o->metaObject() == mo);
}

QTEST_MAIN(tst_Robustness)
#include "tst_robustness.moc"
