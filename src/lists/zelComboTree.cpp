#include "lists/zelComboTree.h"

#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QTreeView>

ZEL_REGISTER_PROGID(zelComboTree);

zelComboTree::zelComboTree(QWidget *parent) : zelRecordCombo(true, true, parent)
{
    m_paintsForeground = false;
    model().SetImageProvider([this](int index) { return m_images.Icon(index); });
    connect(&m_images, &zel::zelImageList::ImagesChanged, this,
            [this] { DropDownView()->viewport()->update(); });
    LayoutFrame();
}

zelComboTree::~zelComboTree() = default;

const zel::zelPropertyTable &zelComboTree::Properties() const
{
    using C = zelComboTree;
    using zel::Prop;
    static const zel::zelPropertyTable table(
        RecordComboEntries(
            {"Width", "SendKeysTab"},
            {{"SuffixBold", {Prop("Sorted", &C::Sorted, &C::SetSorted).Persist()}},
             {"Margin",
              {
                  // Loaded into the property only, as in the combo; a new
                  // combo tree starts enabled.
                  Prop("Enabled", &C::Enabled, &C::SetEnabled)
                      .Persist()
                      .Default(true)
                      .With(zel::Init | zel::StoreOnLoad),
                  Prop("Columns", &C::Columns, &C::SetColumns)
                      .Persist()
                      .With(zel::StoreOnLoad | zel::PlacedApart),
                  Prop("ReadOnly", &C::ReadOnly, &C::SetReadOnly).Persist().With(zel::StoreOnLoad),
                  Prop("HasLines", &C::HasLines, &C::SetHasLines)
                      .Persist()
                      .Default(true)
                      .With(zel::Init),
              }}}),
        {Prop("SelectedKey", &C::SelectedKey)});
    return table;
}

void zelComboTree::InitProperties()
{
    zelRecordCombo::InitProperties();
    SetColumns(QStringLiteral("~"));
}

void zelComboTree::SetHasLines(bool v)
{
    LetThen("HasLines", m_hasLines, v, [&] { DropDownView()->setRootIsDecorated(m_hasLines); });
}

QString zelComboTree::SelectedKey() const
{
    const auto record = SelectedRecord();
    return record ? record->Key() : QString();
}

zelComboRecordRef zelComboTree::AddItem(const QString &sParentKey, const QString &sKey,
                                        const QString &sData, const QString &sText,
                                        const QVariant &oTag, const QVariant &vImageKey,
                                        bool bEnabled, bool bExpandParent)
{
    // A literal name: a million adds compose no trail name.
    zel::Trail t(QStringLiteral("zelComboTree.AddItem"));
    zelComboRecordRef record;
    t.Run([&] {
        if (sData.isEmpty())
            return;
        record = AddRecordRow(t, sParentKey, sKey, sData, oTag, sText,
                              m_images.ImageIndex(vImageKey), bEnabled, bExpandParent);
    });
    return record;
}

void zelComboTree::ClearImages()
{
    zel::Trail t(this, "ClearImages");
    t.Run([&] { m_images.ClearImages(); });
}

bool zelComboTree::ReplaceImage(const QString &sKey, const QVariant &lHandle)
{
    zel::Trail t(this, "ReplaceImage");
    bool done = false;
    t.Run([&] { done = m_images.ReplaceImage(sKey, lHandle); });
    return done;
}

bool zelComboTree::UpdateImage(const QString &sKey, const QVariant &vImageKey)
{
    zel::Trail t(this, "UpdateImage");
    bool found = false;
    t.Run([&] {
        const int handle = model().FindKey(sKey);
        if (handle > 0) {
            model().SetImage(handle, m_images.ImageIndex(vImageKey));
            showChosen();
            found = true;
        }
    });
    return found;
}

void zelComboTree::cboValue_KeyPress(qint16 &KeyAscii)
{
    // No SendKeysTab here: Enter always moves on.
    if (KeyAscii == 13) {
        zel::platform().SendTab(comboBox());
        KeyAscii = 0;
    }
}
