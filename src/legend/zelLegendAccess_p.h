#pragma once

// What only the legend editors reach in their items: the identity number
// behind Key and the source text of a value entry.

#include "core/zelKeyedCollection.h"
#include "legend/zelRangeItem.h"
#include "legend/zelValueItem.h"

struct zelLegendAccess
{
    static qint32 Identity(const zelRangeItem &i) { return i.m_identity; }
    static qint32 Identity(const zelValueItem &i) { return i.m_identity; }
    static void SetIdentity(zelRangeItem &i, qint32 id) { i.m_identity = id; }
    static void SetIdentity(zelValueItem &i, qint32 id) { i.m_identity = id; }
    static void SetSource(zelValueItem &i, const QString &s) { i.m_source = s; }

    // Field by field, stored bounds included: what undo puts back is what
    // was there, not what the getters showed.
    static void Restore(zelRangeItem &to, const zelRangeItem &from)
    {
        to.m_identity = from.m_identity;
        to.m_min = from.m_min;
        to.m_max = from.m_max;
        to.m_value = from.m_value;
        to.m_interpolate = from.m_interpolate;
        to.m_includeLowerBound = from.m_includeLowerBound;
        to.m_color = from.m_color;
        to.m_label = from.m_label;
        to.m_isMin = from.m_isMin;
        to.m_isMax = from.m_isMax;
    }
    static void Restore(zelValueItem &to, const zelValueItem &from)
    {
        to.m_identity = from.m_identity;
        to.m_source = from.m_source;
        to.m_value = from.m_value;
        to.m_color = from.m_color;
        to.m_label = from.m_label;
    }
};

// What an undo puts back: a copy of every item, field by field, and the
// item objects themselves, so that those a host holds come back as they were.
template <typename T> struct zelLegendSnapshot
{
    std::vector<std::shared_ptr<T>> copies, objects;

    static zelLegendSnapshot Take(const zel::zelKeyedCollection<T> &items)
    {
        zelLegendSnapshot s;
        s.objects.reserve(size_t(items.Count()));
        s.copies.reserve(size_t(items.Count()));
        for (const auto &item : items) {
            auto copy = std::make_shared<T>();
            zelLegendAccess::Restore(*copy, *item);
            s.objects.push_back(item);
            s.copies.push_back(std::move(copy));
        }
        return s;
    }
    void PutBack(zel::zelKeyedCollection<T> &items) const
    {
        items.Clear();
        for (size_t i = 0; i < copies.size(); ++i) {
            zelLegendAccess::Restore(*objects[i], *copies[i]);
            items.Add(objects[i], objects[i]->Key());
        }
    }
};
