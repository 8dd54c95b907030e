#include "lists/zelCombo.h"

#include "platform/zelObjectFactory.h"

ZEL_REGISTER_PROGID(zelCombo);

zelCombo::zelCombo(QWidget *parent) : zelRecordCombo(false, false, parent)
{
    LayoutFrame();
}

zelCombo::~zelCombo() = default;

const zel::zelPropertyTable &zelCombo::Properties() const
{
    using C = zelCombo;
    using zel::Prop;
    static const zel::zelPropertyTable table(
        RecordComboEntries(
            {"Width"},
            {{"SuffixBold", {Prop("Sorted", &C::Sorted, &C::SetSorted).Persist()}},
             {"Margin",
              {
                  // Never initialised on a new combo, and loaded into the
                  // property only: the widgets keep their own state.
                  Prop("Enabled", &C::Enabled, &C::SetEnabled)
                      .Persist()
                      .Default(true)
                      .With(zel::StoreOnLoad | zel::PlacedApart),
                  // Loaded and kept, but not shown until the host sets it.
                  Prop("Columns", &C::Columns, &C::SetColumns)
                      .Persist()
                      .With(zel::StoreOnLoad | zel::PlacedApart),
                  Prop("ReadOnly", &C::ReadOnly, &C::SetReadOnly).Persist().With(zel::StoreOnLoad),
              }}}),
        {});
    return table;
}

void zelCombo::InitProperties()
{
    zelRecordCombo::InitProperties();
    SetColumns(QStringLiteral("~"));
}

zelComboRecordRef zelCombo::AddItem(const QString &sKey, const QString &sData, const QVariant &oTag)
{
    // A literal name: a million adds compose no trail name.
    zel::Trail t(QStringLiteral("zelCombo.AddItem"));
    zelComboRecordRef record;
    t.Run(
        [&] { record = AddRecordRow(t, QString(), sKey, sData, oTag, QString(), 0, true, true); });
    return record;
}

void zelCombo::cboValue_KeyPress(qint16 &KeyAscii)
{
    ApplyEnterAsTab(KeyAscii, comboBox());
}
