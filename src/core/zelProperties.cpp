#include "core/zelProperties.h"

#include <QScopeGuard>

#include "core/zelConvert.h"
#include "fields/zelOleDate.h"

namespace zel {

QVariant ConvertTo(Kind kind, const QVariant &value)
{
    switch (kind) {
    case Kind::String:
        return CStr(value);
    case Kind::Bool:
        return CBool(value);
    case Kind::Int16:
        return QVariant::fromValue(CInt(value));
    case Kind::Int32:
        return QVariant::fromValue(CLng(value));
    case Kind::Single:
        return QVariant::fromValue(CSng(value));
    case Kind::Double:
        return CDbl(value);
    case Kind::Colour:
        return QVariant::fromValue(CColour(value));
    case Kind::Date:
        return ToDateTime(value);
    case Kind::Variant:
        break;
    }
    return value;
}

zelPropertyTable::zelPropertyTable(std::initializer_list<zelPropertyDecl> decls) : m_entries(decls)
{
    index();
}

zelPropertyTable::zelPropertyTable(const std::vector<zelPropertyDecl> &base,
                                   std::initializer_list<zelPropertyDecl> decls)
    : m_entries(base)
{
    m_entries.insert(m_entries.end(), decls.begin(), decls.end());
    index();
}

void zelPropertyTable::index()
{
    for (qsizetype i = 0; i < qsizetype(m_entries.size()); ++i)
        m_byName.insert(QString::fromLatin1(m_entries[i].Name).toLower(), i);
}

const zelPropertyDecl *zelPropertyTable::Find(QStringView name) const
{
    const auto it = m_byName.constFind(name.toString().toLower());
    return it == m_byName.cend() ? nullptr : &m_entries[*it];
}

} // namespace zel

void zelPropertyHost::InitProperties()
{
    zel::Trail t(PropertyOwner(), "UserControl_InitProperties");
    for (const zel::zelPropertyDecl &d : Properties().Entries()) {
        if (!d.Has(zel::Init) || !d.Set)
            continue;
        t.Step = QString::fromLatin1(d.Name);
        t.Run([&] { d.Set(owner(), d.DefaultValue); });
    }
}

void zelPropertyHost::ReadProperties(zelPropertyBag &bag)
{
    ReadEntries(bag, Properties().Entries());
}

void zelPropertyHost::WriteProperties(zelPropertyBag &bag) const
{
    WriteEntries(bag, Properties().Entries());
}

void zelPropertyHost::ReadEntries(zelPropertyBag &bag,
                                  const std::vector<zel::zelPropertyDecl> &entries)
{
    zel::Trail t(PropertyOwner(), "UserControl_ReadProperties");
    for (const zel::zelPropertyDecl &d : entries) {
        if (!d.Key || d.Has(zel::WriteOnly))
            continue;
        const QString key = QString::fromLatin1(d.Key);
        t.Step = QStringLiteral("Reading ") + key;
        QVariant value = d.Has(zel::CurrentDefault) ? d.Get(PropertyOwner()) : d.DefaultValue;
        // A stored value that does not read as its type leaves the default.
        t.Run([&] { value = zel::ConvertTo(d.Stored, bag.ReadProperty(key, value)); });
        if (d.Has(zel::NotApplied) || !d.Set)
            continue;
        t.Run([&] {
            const QVariant typed = zel::ConvertTo(d.Type, value);
            m_loadingQuietly = d.Has(zel::StoreOnLoad);
            m_refused = false;
            auto done = qScopeGuard([&] { m_loadingQuietly = m_refused = false; });
            d.Set(owner(), typed);
            // A stored value the setter refused (and logged) would leave what
            // the object held before, which a neighbour loaded earlier may
            // have made a state no setter gives: the default takes its place,
            // as for a missing key, so a second save and load agree.
            if (m_refused && !d.Has(zel::CurrentDefault)) {
                m_refused = false;
                d.Set(owner(), zel::ConvertTo(d.Type, d.DefaultValue));
            }
        });
    }
}

void zelPropertyHost::WriteEntries(zelPropertyBag &bag,
                                   const std::vector<zel::zelPropertyDecl> &entries) const
{
    zel::Trail t(PropertyOwner(), "UserControl_WriteProperties");
    for (const zel::zelPropertyDecl &d : entries) {
        if (!d.Key)
            continue;
        const QString key = QString::fromLatin1(d.Key);
        t.Step = QStringLiteral("Writing ") + key;
        // A value wider than the key's stored width fails here (error 6), is
        // logged and is not written.
        t.Run([&] {
            bag.WriteProperty(key, zel::ConvertTo(d.Stored, d.Get(PropertyOwner())),
                              zel::ConvertTo(d.Stored, d.DefaultValue));
        });
    }
}

void zelPropertyHost::LetVariant(const char *name, const QVariant &value)
{
    zel::Trail t(PropertyOwner(), (QByteArray(name) + " Let").constData());
    t.Run([&] {
        const zel::zelPropertyDecl *d = Properties().Find(QString::fromLatin1(name));
        if (!d || !d->Set)
            throw zelError(zelError::InvalidProcedureCall, t.Name(),
                           QStringLiteral("No such writable property"));
        d->Set(owner(), zel::ConvertTo(d->Type, value));
    });
}

bool zelPropertyHost::letStarts(const char *name, const zel::zelPropertyDecl *&decl) const
{
    decl = Properties().Find(QString::fromLatin1(name));
    return decl != nullptr;
}

void zelPropertyHost::letFinishes(const zel::zelPropertyDecl &decl)
{
    if (!decl.Has(zel::NoMark))
        MarkChanged(QString::fromLatin1(decl.Name));
    if (decl.RefreshWhat)
        Refresh(decl.RefreshWhat);
}
