#pragma once

// Properties as data. Each class describes its properties once, in a table
// of zelPropertyDecl entries: the late-bound name, the persisted key, the
// type and the width it is stored with, the default, what the setter
// refreshes and the oddities a property keeps (a setter that never marks the
// store, a key that is read but not applied). The order of the table is the
// load order. From that table follow:
//
//  - the common steps of every setter (zelPropertyHost::Let): the trail
//    "<Class>.<Name> Let", the value checked by the setter's own rule, nothing
//    done when the value does not change, the member stored, the store's mark
//    and the refresh;
//  - the late-bound edge (ZEL_LATE_BOUND): a wrong-typed QVariant written by
//    name is converted the classic way or refused with a logged error 13 or 6,
//    and the typed C++ setter is called with what it converted to;
//  - InitProperties, ReadProperties and WriteProperties.
//
//     const zelPropertyTable &zelInputBox::Properties() const
//     {
//         static const zelPropertyTable table(FrameProperties(FrameKeys::Long), {
//             zel::Prop("MaxLength", &zelInputBox::MaxLength, &zelInputBox::SetMaxLength)
//                 .Persist().Default(qint16(255)).With(zel::NoMark | zel::CurrentDefault),
//             ...
//         });
//         return table;
//     }

#include "core/zelTrail.h"
#include "platform/zelPropertyBag.h"
#include "zelCtrlExport.h"

#include <QDateTime>
#include <QHash>
#include <QString>
#include <QVariant>

#include <functional>
#include <initializer_list>
#include <type_traits>
#include <vector>

namespace zel {

// How a value is held and converted: the classic property types.
enum class Kind : quint8
{
    String,
    Bool,
    Int16,
    Int32,
    Single,
    Double,
    Colour, // 0x00BBGGRR, or a system colour with the high bit set
    Date,
    Variant
};

// The classic conversion of a value to a kind: throws zelError 13 (type
// mismatch) or 6 (overflow) where the value does not read as the kind.
ZELCTRL_EXPORT QVariant ConvertTo(Kind kind, const QVariant &value);

enum PropertyFlag : quint32
{
    NoFlags = 0,
    // InitProperties sets the property to its default on a newly placed control.
    Init = 0x01,
    // The setter never marks the property store.
    NoMark = 0x02,
    // On load the value is only stored: no mark, no refresh.
    StoreOnLoad = 0x04,
    // Saved, and read on load, but what was read is not applied.
    NotApplied = 0x08,
    // Saved, never read back.
    WriteOnly = 0x10,
    // The setter refreshes and raises even when given the value it holds.
    Always = 0x20,
    // On load the default is the value the control holds at that moment.
    CurrentDefault = 0x40,
    // A newly placed control holds another value than the default on
    // purpose (left uninitialised, or initialised otherwise), so that its
    // first save stores it.
    PlacedApart = 0x80,
};

// One property of a class.
struct ZELCTRL_EXPORT zelPropertyDecl
{
    const char *Name = nullptr; // the late-bound name; the setter's trail is "<Name> Let"
    const char *Key = nullptr;  // the persisted key; null when not persisted
    Kind Type = Kind::Variant;  // the type of the typed getter and setter
    Kind Stored = Kind::Variant;
    QVariant DefaultValue;
    quint32 Flags = NoFlags;
    quint32 RefreshWhat = 0; // what a change refreshes, in the class's own terms
    std::function<QVariant(const QObject *)> Get;
    std::function<void(QObject *, const QVariant &)> Set; // null: not writable

    // Builders, so that a table reads as a list of facts.
    zelPropertyDecl &Persist(const char *key = nullptr)
    {
        Key = key ? key : Name;
        return *this;
    }
    zelPropertyDecl &StoredAs(Kind kind)
    {
        Stored = kind;
        return *this;
    }
    template <typename T> zelPropertyDecl &Default(const T &v)
    {
        DefaultValue = QVariant::fromValue(v);
        return *this;
    }
    zelPropertyDecl &With(quint32 f)
    {
        Flags |= f;
        return *this;
    }
    zelPropertyDecl &Refreshes(quint32 what)
    {
        RefreshWhat = what;
        return *this;
    }
    bool Has(quint32 f) const { return (Flags & f) != 0; }
};

template <typename T> constexpr Kind KindOf()
{
    if constexpr (std::is_same_v<T, QString>)
        return Kind::String;
    else if constexpr (std::is_same_v<T, bool>)
        return Kind::Bool;
    else if constexpr (std::is_same_v<T, qint16>)
        return Kind::Int16;
    else if constexpr (std::is_same_v<T, qint32>)
        return Kind::Int32;
    else if constexpr (std::is_same_v<T, float>)
        return Kind::Single;
    else if constexpr (std::is_same_v<T, double>)
        return Kind::Double;
    else if constexpr (std::is_same_v<T, quint32>)
        return Kind::Colour;
    else if constexpr (std::is_same_v<T, QDateTime>)
        return Kind::Date;
    else
        return Kind::Variant;
}

namespace detail {

template <typename T, typename C, typename Getter>
zelPropertyDecl makeDecl(const char *name, Getter get)
{
    zelPropertyDecl d;
    d.Name = name;
    d.Type = d.Stored = KindOf<T>();
    d.DefaultValue = QVariant::fromValue(T());
    d.Get = [get](const QObject *o) {
        return QVariant::fromValue((static_cast<const C *>(o)->*get)());
    };
    return d;
}

} // namespace detail

// A read-only property.
template <typename T, typename C> zelPropertyDecl Prop(const char *name, T (C::*get)() const)
{
    return detail::makeDecl<T, C>(name, get);
}

// A property with a typed setter taking its value (numbers, Booleans).
template <typename T, typename C, typename D = C>
zelPropertyDecl Prop(const char *name, T (C::*get)() const, void (D::*set)(T))
{
    zelPropertyDecl d = detail::makeDecl<T, C>(name, get);
    d.Set = [set](QObject *o, const QVariant &v) { (static_cast<D *>(o)->*set)(v.value<T>()); };
    return d;
}

// A property with a typed setter taking a reference (strings, variants).
template <typename T, typename C, typename D = C>
zelPropertyDecl Prop(const char *name, T (C::*get)() const, void (D::*set)(const T &))
{
    zelPropertyDecl d = detail::makeDecl<T, C>(name, get);
    d.Set = [set](QObject *o, const QVariant &v) { (static_cast<D *>(o)->*set)(v.value<T>()); };
    return d;
}

// A class's properties in load order, found by name without regard to
// letter case.
class ZELCTRL_EXPORT zelPropertyTable
{
public:
    zelPropertyTable(std::initializer_list<zelPropertyDecl> decls);
    // A base class's entries first, then the class's own.
    zelPropertyTable(const std::vector<zelPropertyDecl> &base,
                     std::initializer_list<zelPropertyDecl> decls);

    const std::vector<zelPropertyDecl> &Entries() const { return m_entries; }
    // The entry named name; null when there is none.
    const zelPropertyDecl *Find(QStringView name) const;

private:
    void index();

    std::vector<zelPropertyDecl> m_entries;
    QHash<QString, qsizetype> m_byName;
};

} // namespace zel

// What a class with described properties inherits: the setters' common
// steps, the late-bound edge, and the property store's three procedures.
// The class names its table in Properties(), says how it marks the store in
// MarkChanged (a signal PropertyChanged(name) in every control) and, where
// its table names refreshes, carries them out in Refresh.
class ZELCTRL_EXPORT zelPropertyHost : public zelPersistable
{
public:
    virtual const zel::zelPropertyTable &Properties() const = 0;

    // Defaults of a newly placed control: every Init entry through its setter.
    void InitProperties() override;
    // Every persisted entry in table order; a stored value that does not read
    // as its type is logged and the default taken, so one bad key never costs
    // the others.
    void ReadProperties(zelPropertyBag &bag) override;
    // Every persisted entry, each value with its stored width; a value that
    // does not fit that width is logged and not written.
    void WriteProperties(zelPropertyBag &bag) const override;

protected:
    zelPropertyHost() = default;

    // Reads or writes the given entries, as ReadProperties and
    // WriteProperties do with the whole table.
    void ReadEntries(zelPropertyBag &bag, const std::vector<zel::zelPropertyDecl> &entries);
    void WriteEntries(zelPropertyBag &bag, const std::vector<zel::zelPropertyDecl> &entries) const;

    virtual const QObject *PropertyOwner() const = 0;
    virtual void MarkChanged(const QString &name) = 0;
    virtual void Refresh(quint32 what) { Q_UNUSED(what); }

    // A setter's common steps under the trail "<Class>.<name> Let": check
    // computes the value to store (it may throw, and may show what the
    // property's rule says to show); when that differs from member (or the
    // entry is Always), the member takes it, the store is marked and the
    // entry's refresh and then apply run.
    template <typename T, typename Check, typename Apply>
    void Let(const char *name, T &member, Check &&check, Apply &&apply);
    template <typename T> void Let(const char *name, T &member, const T &value)
    {
        Let(
            name, member, [&] { return value; }, [] {});
    }
    template <typename T, typename Apply>
    void LetThen(const char *name, T &member, const T &value, Apply &&apply)
    {
        Let(
            name, member, [&] { return value; }, std::forward<Apply>(apply));
    }

public:
    // The late-bound edge: value converted to the property's type, or refused
    // with a logged error and the property left as it is.
    void LetVariant(const char *name, const QVariant &value);

private:
    bool letStarts(const char *name, const zel::zelPropertyDecl *&decl) const;
    void letFinishes(const zel::zelPropertyDecl &decl);
    QObject *owner() { return const_cast<QObject *>(PropertyOwner()); }

    bool m_loadingQuietly = false;
    // Set when a setter refuses its value, so that a load can tell a stored
    // value that did not take.
    bool m_refused = false;
};

template <typename T, typename Check, typename Apply>
void zelPropertyHost::Let(const char *name, T &member, Check &&check, Apply &&apply)
{
    zel::Trail t(PropertyOwner(), (QByteArray(name) + " Let").constData());
    const bool ran = t.Run([&] {
        const zel::zelPropertyDecl *decl = nullptr;
        if (!letStarts(name, decl))
            throw zelError(zelError::InvalidProcedureCall, t.Name(),
                           QStringLiteral("No such property"));
        T value = check();
        if (value == member && !decl->Has(zel::Always))
            return;
        member = std::move(value);
        if (m_loadingQuietly)
            return;
        letFinishes(*decl);
        apply();
    });
    if (!ran)
        m_refused = true;
}

// Declares the late-bound setter of a property whose typed setter is
// Set<Name>(T): Q_PROPERTY(QVariant Name READ Name WRITE Set<Name>) reaches
// it with whatever a script wrote.
#define ZEL_LATE_BOUND(Name)                                                                       \
    void Set##Name(const QVariant &v)                                                              \
    {                                                                                              \
        LetVariant(#Name, v);                                                                      \
    }
