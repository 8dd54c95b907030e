#include "syncfolders/zelSyncFolderList.h"

#include "core/zelTrail.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"
#include "platform/zelSettingsGroup.h"
#include "syncfolders/frmSyncFolder.h"

#include <QDialog>
#include <QMap>
#include <QRegularExpression>

#include <algorithm>

ZEL_REGISTER_PROGID(zelSyncFolderList);

namespace {

// Version of the stored layout; a newer one is read as far as it is understood.
constexpr int StoredVersion = 1;

QString textOf(const QVariant &v, bool &ok)
{
    ok = v.metaType().id() == QMetaType::QString;
    return ok ? v.toString() : QString();
}

} // namespace

zelSyncFolderList::zelSyncFolderList(QObject *parent)
    : QObject(parent), m_folders(std::make_shared<zelSyncFolders>())
{
    zel::RegisterShared<zelSyncFolders>();
}

zelSyncFolderList::~zelSyncFolderList() = default;

void zelSyncFolderList::SetApplication(const QString &v)
{
    zel::Trail t(this, "Application Let");
    t.Run([&] {
        if (v.size() > 200 || v.contains(QLatin1Char('/')) || v.contains(QLatin1Char('\\')))
            throw zelError(zelError::InvalidPropertyValue, {},
                           QStringLiteral("no usable application name"));
        m_application = v;
    });
}

QString zelSyncFolderList::Group() const
{
    if (m_application.isEmpty())
        throw zelError(zelError::InvalidProcedureCall, {},
                       QStringLiteral("the list has no application name"));
    return QStringLiteral("SyncFolders/") + m_application;
}

bool zelSyncFolderList::Load()
{
    bool loaded = false;
    zel::Trail t(this, "Load");
    t.Run([&] {
        const QVariantMap stored = zel::ReadUserGroup(Group());
        QList<int> numbers;
        static const QRegularExpression entry(QStringLiteral("^Folder(\\d{1,6})/Name$"));
        for (auto it = stored.begin(); it != stored.end(); ++it) {
            const QRegularExpressionMatch m = entry.match(it.key());
            if (m.hasMatch())
                numbers << m.captured(1).toInt();
        }
        std::sort(numbers.begin(), numbers.end());
        m_folders->Clear();
        for (int n : std::as_const(numbers)) {
            // Each entry on its own: a bad one is logged and left out.
            zel::Trail e(this, "Load");
            e.Step = QStringLiteral("Folder%1").arg(n);
            e.Run([&] {
                auto value = [&](const char *key) {
                    return stored.value(e.Step + QLatin1Char('/') + QLatin1String(key));
                };
                auto folder = std::make_shared<zelSyncFolder>();
                bool ok = false, allOk = true;
                folder->SetName(textOf(value("Name"), ok));
                allOk &= ok && !folder->Name().isEmpty();
                folder->SetLocalFolder(textOf(value("LocalFolder"), ok));
                allOk &= ok;
                folder->SetSecondFolder(textOf(value("SecondFolder"), ok));
                allOk &= ok;
                const QVariant pattern = value("Pattern");
                folder->SetPattern(pattern.isValid() ? textOf(pattern, ok) : QString());
                allOk &= ok || !pattern.isValid();
                const int direction = value("Direction").toString().toInt(&ok);
                allOk &= ok && direction >= ZEL_SyncBothWays && direction <= ZEL_SyncFromSecond;
                if (!allOk)
                    throw zelError(zelError::InvalidPropertyValue, {},
                                   QStringLiteral("an unreadable folder entry, left out"));
                folder->SetDirection(direction);
                const QString enabled = value("Enabled").toString().toLower();
                folder->SetEnabled(enabled != QLatin1String("false") && enabled != "0");
                const QVariant last = value("LastSync");
                folder->SetLastSync(QDateTime::fromString(last.toString(), Qt::ISODate));
                if (!m_folders->Add(folder))
                    throw zelError(zelError::InvalidPropertyValue, {},
                                   QStringLiteral("a second folder named ") + folder->Name());
                if (last.isValid() && !folder->LastSync().isValid())
                    throw zelError(zelError::TypeMismatch, {},
                                   QStringLiteral("no time of the last run: ") + last.toString());
            });
        }
        loaded = m_stored = true;
    });
    return loaded;
}

bool zelSyncFolderList::Save()
{
    bool saved = false;
    zel::Trail t(this, "Save");
    t.Run([&] {
        QVariantMap values{{QStringLiteral("Version"), StoredVersion},
                           {QStringLiteral("Count"), m_folders->Count()}};
        int n = 0;
        for (const auto &f : *m_folders) {
            const QString at = QStringLiteral("Folder%1/").arg(++n);
            values.insert(at + "Name", f->Name());
            values.insert(at + "LocalFolder", f->LocalFolder());
            values.insert(at + "SecondFolder", f->SecondFolder());
            values.insert(at + "Direction", int(f->Direction()));
            values.insert(at + "Pattern", f->Pattern());
            values.insert(at + "Enabled", f->Enabled());
            if (f->LastSync().isValid())
                values.insert(at + "LastSync", f->LastSync().toString(Qt::ISODateWithMs));
        }
        QString error;
        if (!zel::WriteUserGroup(Group(), values, error))
            throw zelError(zelError::InvalidProcedureCall, {}, error);
        saved = m_stored = true;
    });
    return saved;
}

bool zelSyncFolderList::Edit(QWidget *parent)
{
    bool accepted = false;
    zel::Trail t(this, "Edit");
    t.Run([&] {
        frmSyncFolder form(*m_folders, parent);
        if (zel::platform().RunDialog(form) != QDialog::Accepted)
            return;
        t.Step = QStringLiteral("Taking the changes");
        m_folders->Clear();
        for (const auto &f : form.Folders())
            m_folders->Add(f);
        accepted = true;
        if (!m_application.isEmpty())
            Save();
    });
    return accepted;
}

QList<std::shared_ptr<zelSyncFolder>> zelSyncFolderList::Chosen(const QString &sName) const
{
    QList<std::shared_ptr<zelSyncFolder>> list;
    if (!sName.isEmpty()) {
        auto f = m_folders->Item(sName);
        if (!f)
            throw zelError(zelError::InvalidProcedureCall, {},
                           QStringLiteral("no folder named ") + sName.left(200));
        return {f};
    }
    for (const auto &f : *m_folders)
        if (f->Enabled())
            list << f;
    return list;
}

QList<zelSyncAction> zelSyncFolderList::Plan(const zelSyncFolder &folder, QString *refusal)
{
    zelSyncEngine engine(folder, zelSyncEngine::StateFile(m_application, folder.Name()));
    const QList<zelSyncAction> plan = engine.Plan();
    if (refusal)
        *refusal = engine.Refusal();
    return plan;
}

QStringList zelSyncFolderList::Preview(const QString &sName)
{
    QStringList lines;
    zel::Trail t(this, "Preview");
    t.Run([&] {
        for (const auto &f : Chosen(sName)) {
            QString refusal;
            const QList<zelSyncAction> plan = Plan(*f, &refusal);
            if (!refusal.isEmpty())
                lines << f->Name() + QStringLiteral(": ") + refusal;
            for (const zelSyncAction &a : plan)
                lines << f->Name() + QStringLiteral(": ") + a.Text();
        }
    });
    return lines;
}

zelSyncSummary zelSyncFolderList::Run(zelSyncFolder &folder)
{
    zelSyncSummary summary;
    zel::Trail t(this, "Synchronise");
    t.Step = folder.Name();
    t.Run([&] {
        if (m_application.isEmpty())
            throw zelError(zelError::InvalidProcedureCall, {},
                           QStringLiteral("the list has no application name"));
        zelSyncEngine engine(folder, zelSyncEngine::StateFile(m_application, folder.Name()));
        const QList<zelSyncAction> plan = engine.Plan();
        if (!engine.Refusal().isEmpty()) {
            summary.errors = 1;
            summary.problems << engine.Refusal();
        } else {
            summary = engine.Run(plan, [&](qint32 done, qint32 total, const QString &path) {
                bool cancel = m_cancel;
                emit Progress(folder.Name(), path, done, total, cancel);
                m_cancel = m_cancel || cancel;
                return !m_cancel;
            });
            if (!summary.cancelled)
                folder.SetLastSync(QDateTime::currentDateTimeUtc());
        }
        // Every file it could not handle goes to the log as well.
        for (const QString &p : std::as_const(summary.problems))
            mLog::AddToErrorLog(t.Name(), zelError::InvalidProcedureCall, QString(), p,
                                folder.Name(), -1);
    });
    emit Synchronised(folder.Name(), summary.Text(folder.Name()));
    return summary;
}

QString zelSyncFolderList::Synchronise(const QString &sName)
{
    QStringList lines;
    zel::Trail t(this, "Synchronise");
    t.Run([&] {
        m_cancel = false;
        for (const auto &f : Chosen(sName)) {
            if (m_cancel)
                break;
            const zelSyncSummary s = Run(*f);
            lines << s.Text(f->Name());
            for (const QString &p : s.problems)
                lines << QStringLiteral("  ") + p;
        }
        // The times of the last runs; a list that never met the store must
        // not replace what is stored there.
        if (m_stored && !lines.isEmpty())
            Save();
    });
    return lines.join(QLatin1Char('\n'));
}
