#pragma once

// A labelled combo whose drop-down shows its records as a tree: any row at
// any depth can be chosen, by a click or by the keyboard (arrows, + and -
// or Left and Right to open and close branches, Enter or Space to choose,
// Escape to leave). Rows carry pictures from an image map; Enter in the
// closed combo always moves on to the next field.

#include "lists/zelImageList.h"
#include "lists/zelRecordCombo.h"
#include "zelCtrlExport.h"

class ZELCTRL_EXPORT zelComboTree : public zelRecordCombo
{
    Q_OBJECT
    Q_CLASSINFO("DispId.Enabled", "0x68030010")
    Q_CLASSINFO("DispId.ReadOnly", "0x68030019")
    Q_CLASSINFO("DispId.Margin", "0x6803000f")
    Q_CLASSINFO("DispId.HasLines", "0x68030018")
    Q_CLASSINFO("DispId.Sorted", "0x68030004")
    Q_CLASSINFO("DispId.Columns", "0x68030003")
    Q_CLASSINFO("DispId.Records", "0x68030002")
    Q_CLASSINFO("DispId.SelectedRecord", "0x68030001")
    Q_CLASSINFO("DispId.SelectedKey", "0x68030000")
    Q_CLASSINFO("DispId.AddItem", "0x60030011")
    Q_CLASSINFO("DispId.Clear", "0x60030012")
    Q_CLASSINFO("DispId.SelectItem", "0x60030013")
    Q_CLASSINFO("DispId.ClearImages", "0x60030015")
    Q_CLASSINFO("DispId.ReplaceImage", "0x60030016")
    Q_CLASSINFO("DispId.UpdateImage", "0x60030017")
    Q_CLASSINFO("DispId.BeginUpdate", "0x6003001a")
    Q_CLASSINFO("DispId.EndUpdate", "0x6003001b")
    Q_CLASSINFO("DispId.Changed", "1")
    Q_PROPERTY(QVariant HasLines READ HasLines WRITE SetHasLines)
    Q_PROPERTY(QString SelectedKey READ SelectedKey)

public:
    explicit zelComboTree(QWidget *parent = nullptr);
    ~zelComboTree() override;

    // Branch marks in the drop-down; by default true.
    bool HasLines() const { return m_hasLines; }
    void SetHasLines(bool v);
    ZEL_LATE_BOUND(HasLines)
    // The selected record's key; "" when none is selected.
    QString SelectedKey() const;

    // A row under the row of sParentKey (at the top when there is none) with
    // the texts of sData, its tree text sText (text 0 when empty) and the
    // picture of vImageKey. Nothing, and no row, for an empty sData, a key
    // taken in any letter case, or more texts than columns. Records keep
    // Level 0.
    // Late bound, the record comes back as a std::shared_ptr (a QObject).
#ifdef Q_MOC_RUN
    Q_INVOKABLE std::shared_ptr<zelComboRecord>
#else
    zelComboRecordRef
#endif
    AddItem(const QString &sParentKey, const QString &sKey, const QString &sData,
            const QString &sText = QString(), const QVariant &oTag = QVariant(),
            const QVariant &vImageKey = QVariant(), bool bEnabled = true,
            bool bExpandParent = true);
    // Every picture and image key goes, the built-in ones too.
    Q_INVOKABLE void ClearImages();
    // The picture under sKey replaced, or added under a new key. False, with
    // a logged error, for a picture that cannot be read.
    Q_INVOKABLE bool ReplaceImage(const QString &sKey, const QVariant &lHandle);
    // The row of sKey shows the picture of vImageKey; false for no such row.
    Q_INVOKABLE bool UpdateImage(const QString &sKey, const QVariant &vImageKey);

    const zel::zelImageList &Images() const
    {
        return m_images;
    }

    Q_INVOKABLE void InitProperties() override;
    const zel::zelPropertyTable &Properties() const override;

protected:
    void cboValue_KeyPress(qint16 &KeyAscii) override;

private:
    zel::zelImageList m_images;
    bool m_hasLines = true;
};
