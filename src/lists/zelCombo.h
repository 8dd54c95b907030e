#pragma once

// A labelled, multi-column drop-down list of keyed records. The host
// declares the columns with one column string (Columns), adds rows with
// AddItem, selects one by key with SelectItem and hears of every change of
// the selected row through Changed.
//
// A newly placed combo stores Enabled false until the host sets it, and a
// loaded Columns is kept but not shown until the host sets it again; loading
// puts Enabled and ReadOnly into the properties only, not onto the widgets.

#include "lists/zelRecordCombo.h"
#include "zelCtrlExport.h"

class ZELCTRL_EXPORT zelCombo : public zelRecordCombo
{
    Q_OBJECT
    Q_CLASSINFO("DispId.Enabled", "0x6803000f")
    Q_CLASSINFO("DispId.ReadOnly", "0x68030015")
    Q_CLASSINFO("DispId.Margin", "0x6803000e")
    Q_CLASSINFO("DispId.SendKeysTab", "0x68030016")
    Q_CLASSINFO("DispId.Prefix", "0x6803000d")
    Q_CLASSINFO("DispId.PrefixAlignment", "0x6803000c")
    Q_CLASSINFO("DispId.PrefixWidth", "0x6803000b")
    Q_CLASSINFO("DispId.PrefixColon", "0x6803000a")
    Q_CLASSINFO("DispId.PrefixBold", "0x68030009")
    Q_CLASSINFO("DispId.Suffix", "0x68030008")
    Q_CLASSINFO("DispId.SuffixAlignment", "0x68030007")
    Q_CLASSINFO("DispId.SuffixWidth", "0x68030006")
    Q_CLASSINFO("DispId.SuffixParens", "0x68030005")
    Q_CLASSINFO("DispId.SuffixBold", "0x68030004")
    Q_CLASSINFO("DispId.Sorted", "0x68030003")
    Q_CLASSINFO("DispId.Columns", "0x68030002")
    Q_CLASSINFO("DispId.Records", "0x68030001")
    Q_CLASSINFO("DispId.SelectedRecord", "0x68030000")
    Q_CLASSINFO("DispId.AddItem", "0x60030010")
    Q_CLASSINFO("DispId.Clear", "0x60030011")
    Q_CLASSINFO("DispId.SelectItem", "0x60030012")
    Q_CLASSINFO("DispId.BeginUpdate", "0x60030013")
    Q_CLASSINFO("DispId.EndUpdate", "0x60030014")
    Q_CLASSINFO("DispId.Changed", "1")

public:
    explicit zelCombo(QWidget *parent = nullptr);
    ~zelCombo() override;

    // A row with the texts of sData (tab-separated, one per column, first
    // column first) under the key sKey. Nothing, and no row, when the key is
    // taken (in any letter case) or sData has more texts than the combo has
    // columns; fewer texts leave the last cells empty.
    // Late bound, the record comes back as a std::shared_ptr (a QObject).
#ifdef Q_MOC_RUN
    Q_INVOKABLE std::shared_ptr<zelComboRecord> AddItem(const QString &sKey, const QString &sData,
                                                        const QVariant &oTag = QVariant());
#else
    zelComboRecordRef AddItem(const QString &sKey, const QString &sData,
                              const QVariant &oTag = QVariant());
#endif

    // A newly placed combo: the properties' defaults, one "Default" column
    // from the column string "~", and Enabled left as it is (false).
    Q_INVOKABLE void InitProperties() override;
    const zel::zelPropertyTable &Properties() const override;

protected:
    void cboValue_KeyPress(qint16 &KeyAscii) override;
};
