#pragma once

// One column of a grid list: caption, alignment, width, data type,
// decimals, edit rights and the drop-down list of its cell editor. A plain
// description: changing it does not change a grid by itself; the grid list
// applies its columns when it rebuilds them (RefreshColumns).

#include "core/zelShared.h"
#include "grid/zelGridEnums.h"

#include <QObject>
#include <QString>
#include <QVariant>

#include <memory>

class ZELCTRL_EXPORT zelGridColumn : public zel::SharedObject<zelGridColumn>
{
    Q_OBJECT
    Q_PROPERTY(QVariant Width READ Width WRITE SetWidth)
    Q_PROPERTY(QVariant Decimals READ Decimals WRITE SetDecimals)
    Q_PROPERTY(QVariant DataType READ DataType WRITE SetDataType)
    Q_PROPERTY(QString ComboList READ ComboList WRITE SetComboList)
    Q_PROPERTY(QString Caption READ Caption WRITE SetCaption)
    Q_PROPERTY(QVariant AllowEdit READ AllowEdit WRITE SetAllowEdit)
    Q_PROPERTY(QVariant Alignment READ Alignment WRITE SetAlignment)
    Q_PROPERTY(QVariant Tag READ Tag WRITE SetTag)

public:
    Q_INVOKABLE explicit zelGridColumn(QObject *parent = nullptr);
    ~zelGridColumn() override;

    // Twips; 0 (the default) leaves the grid's own width.
    qint32 Width() const { return m_width; }
    void SetWidth(const QVariant &v);
    qint32 Decimals() const { return m_decimals; }
    void SetDecimals(const QVariant &v);
    // The classic variant type code of the cells (8 string, 11 boolean,
    // 2 to 6 numbers); 36 marks a colour column. 0 by default.
    qint32 DataType() const { return m_dataType; }
    void SetDataType(const QVariant &v);
    // Entries of the cell editor's drop-down, separated by "|"; empty (the
    // default) gives a plain text editor.
    QString ComboList() const { return m_comboList; }
    void SetComboList(const QString &v);
    // The header text, and the column's key once it is added to a collection.
    QString Caption() const { return m_caption; }
    void SetCaption(const QString &v);
    bool AllowEdit() const { return m_allowEdit; }
    void SetAllowEdit(const QVariant &v);
    ZEL_Controls_ColumnAlign Alignment() const { return m_alignment; }
    void SetAlignment(const QVariant &v);
    // The host's own object.
    QVariant Tag() const { return m_tag; }
    void SetTag(const QVariant &v) { m_tag = v; }

private:
    qint32 m_width = 0;
    qint32 m_decimals = 0;
    qint32 m_dataType = 0;
    QString m_comboList;
    QString m_caption;
    bool m_allowEdit = false;
    ZEL_Controls_ColumnAlign m_alignment = ZEL_Controls_ColumnAlign(0);
    QVariant m_tag;
};
