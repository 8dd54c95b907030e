#include "syncfolders/zelSyncFolders.h"

#include "core/zelTrail.h"
#include "platform/zelObjectFactory.h"

ZEL_REGISTER_PROGID(zelSyncFolders);

zelSyncFolders::zelSyncFolders(QObject *parent) : SharedObject(parent)
{
    zel::RegisterShared<zelSyncFolders>();
    zel::RegisterShared<zelSyncFolder>();
}

zelSyncFolders::~zelSyncFolders() = default;

bool zelSyncFolders::Add(const std::shared_ptr<zelSyncFolder> &oFolder)
{
    try {
        return oFolder && !oFolder->Name().isEmpty() && m_items.Add(oFolder, oFolder->Name());
    } catch (...) {
        return false;
    }
}

bool zelSyncFolders::Add(QObject *oFolder)
{
    try {
        return Add(zel::SharedFromObject<zelSyncFolder>(oFolder));
    } catch (...) {
        return false;
    }
}

std::shared_ptr<zelSyncFolder> zelSyncFolders::Create(const QString &sName,
                                                      const QString &sLocalFolder,
                                                      const QString &sSecondFolder,
                                                      qint32 eDirection, const QString &sPattern)
{
    std::shared_ptr<zelSyncFolder> made;
    zel::Trail t(this, "Create");
    t.Run([&] {
        auto folder = std::make_shared<zelSyncFolder>();
        folder->SetName(sName);
        folder->SetLocalFolder(sLocalFolder);
        folder->SetSecondFolder(sSecondFolder);
        if (eDirection < ZEL_SyncBothWays || eDirection > ZEL_SyncFromSecond)
            throw zelError(zelError::InvalidProcedureCall, {}, QStringLiteral("no such direction"));
        folder->SetDirection(eDirection);
        folder->SetPattern(sPattern);
        if (Add(folder))
            made = folder;
    });
    return made;
}

bool zelSyncFolders::Remove(const QVariant &vKey)
{
    try {
        return m_items.Remove(vKey);
    } catch (...) {
        return false;
    }
}

std::shared_ptr<zelSyncFolder> zelSyncFolders::Item(const QVariant &vKey) const
{
    try {
        return m_items.Item(vKey);
    } catch (...) {
        return {};
    }
}

void zelSyncFolders::Clear()
{
    m_items.Clear();
}

std::shared_ptr<zelGridEnumerator> zelSyncFolders::NewEnum() const
{
    return zelGridEnumerator::Make(m_items.NewEnum());
}
