#pragma once

// Data-driven tests without the boilerplate: a table's columns named at
// once, and a row's values fetched at once, in column order.
//
//     zelColumns<QString, int>({"text", "beeps"});
//     const auto [text, beeps] = zelFetch<QString, int>({"text", "beeps"});

#include <QTest>

#include <array>
#include <tuple>
#include <utility>

template <typename... T> void zelColumns(const std::array<const char *, sizeof...(T)> &names)
{
    size_t i = 0;
    (QTest::addColumn<T>(names[i++]), ...);
}

template <typename... T, size_t... I>
std::tuple<T...> zelFetchAt(const std::array<const char *, sizeof...(T)> &names,
                            std::index_sequence<I...>)
{
    return {*static_cast<T *>(QTest::qData(names[I], qMetaTypeId<T>()))...};
}

template <typename... T>
std::tuple<T...> zelFetch(const std::array<const char *, sizeof...(T)> &names)
{
    return zelFetchAt<T...>(names, std::index_sequence_for<T...>());
}

// A row of a table, its values in column order:
//     zelRow("two beeps", QStringLiteral("text"), 2);
template <typename... T> void zelRow(const char *name, const T &...values)
{
    (QTest::newRow(name) << ... << values);
}
