#include "zelFakePlatform.h"

#include <QApplication>
#include <QTest>

#include <stdexcept>

QList<QVariantList> zelCaptureLogger::errors;
QList<QVariantList> zelCaptureLogger::traces;
int zelCaptureLogger::created = 0;
bool zelCaptureLogger::failing = false;

void zelCaptureLogger::ErrorMessage(const QString &app, const QString &version,
                                    const QString &source, qint32 number, const QString &errSource,
                                    const QString &description, const QString &moreInfo)
{
    if (failing)
        throw std::runtime_error("logger failed");
    errors.append({app, version, source, number, errSource, description, moreInfo});
}

void zelCaptureLogger::TraceMessage(const QString &app, const QString &version,
                                    const QString &source, const QString &text1,
                                    const QString &text2)
{
    if (failing)
        throw std::runtime_error("logger failed");
    traces.append({app, version, source, text1, text2});
}

zelTestScope::zelTestScope() : m_fake(new zelFakePlatform)
{
    m_previous = zel::SetPlatform(std::unique_ptr<zel::Platform>(m_fake));
    mLog::Reset();
    zelCaptureLogger::errors.clear();
    zelCaptureLogger::traces.clear();
    zelCaptureLogger::created = 0;
    zelCaptureLogger::failing = false;
    zel::RegisterProgId(QString::fromLatin1(LoggerProgId), [](QObject *parent) -> QObject * {
        ++zelCaptureLogger::created;
        return new zelCaptureLogger(parent);
    });
    m_fake->machineSettings.insert(QStringLiteral("ErrorLogger"),
                                   QString::fromLatin1(LoggerProgId));
}

zelTestScope::~zelTestScope()
{
    zel::UnregisterProgId(QString::fromLatin1(LoggerProgId));
    zel::SetPlatform(std::move(m_previous));
    mLog::Reset();
}

int zelLoggedErrors(const QString &source)
{
    int n = 0;
    for (const QVariantList &e : std::as_const(zelCaptureLogger::errors))
        if (source.isEmpty() || e.value(2).toString() == source)
            ++n;
    return n;
}

bool zelShowActive(QWidget &form)
{
    form.show();
    QApplication::setActiveWindow(&form);
    return QTest::qWaitForWindowActive(&form);
}

void zelTypeKeys(QWidget *w, const QString &text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const qsizetype n = text[i].isHighSurrogate() ? 2 : 1;
        if (text[i].unicode() < 128)
            QTest::keyClick(w, text[i].toLatin1());
        else
            QTest::sendKeyEvent(QTest::Click, w, Qt::Key_unknown, text.mid(i, n), Qt::NoModifier);
        i += n - 1;
    }
}
