#include "files/zelFileList.h"

#include "platform/zelObjectFactory.h"

ZEL_REGISTER_PROGID(zelFileList);

zelFileList::zelFileList(QObject *parent) : SharedObject(parent), m_files(this, &zelFile::FullPath)
{
    zel::RegisterShared<zelFileList>();
    zel::RegisterShared<zelFile>();
}

zelFileList::~zelFileList() = default;

bool zelFileList::Remove(const QVariant &vKey)
{
    const bool removed = m_files.Remove(vKey);
    if (removed)
        emit MembersChanged();
    return removed;
}

void zelFileList::Clear()
{
    m_files.Clear();
    emit MembersChanged();
}

bool zelFileList::Add(const zelFile::Ptr &oFile)
{
    const bool added = m_files.Add(oFile);
    if (added)
        emit MembersChanged();
    return added;
}

bool zelFileList::Add(QObject *oFile)
{
    return Add(zel::SharedFromObject<zelFile>(oFile));
}

zelFile::Ptr zelFileList::Create(const QString &sFullPath, const QString &sComment, bool bSelected)
{
    zelFile::Ptr file;
    zel::Trail t(this, "Create");
    t.Run([&] {
        auto made = std::make_shared<zelFile>();
        made->SetFullPath(sFullPath);
        made->SetComment(sComment);
        made->SetSelected(bSelected);
        if (Add(made))
            file = made;
    });
    return file;
}

zelFile::Ptr zelFileList::CreateListed(const QString &fullPath, qint64 size, qint64 modifiedMSecs)
{
    // No trail per file: a listing of many files would spend its time naming them.
    if (m_files.items().ContainsKey(fullPath))
        return {};
    auto made = std::make_shared<zelFile>();
    made->SetListed(fullPath, size, modifiedMSecs);
    made->SetSelected(true);
    return m_files.items().Add(made, fullPath) ? made : zelFile::Ptr();
}

QString zelFileList::ExportXML(const QString &sXML) const
{
    Q_UNUSED(sXML);
    return QString();
}
