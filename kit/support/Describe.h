#pragma once

#include <array>
#include <boost/describe.hpp>
#include <boost/mp11.hpp>
#include <optional>
#include <string_view>

namespace tessivo {

/// All cases of a described enumeration, in the order of their declaration.
template <class E>
constexpr auto allCases() {
    return []<template <class...> class L, class... D>(L<D...>) {
        return std::array<E, sizeof...(D)>{D::value...};
    }(boost::describe::describe_enumerators<E>{});
}

/// The raw value of a case: its name.
template <class E>
constexpr std::string_view rawValue(E value) {
    return boost::describe::enum_to_string(value, "");
}

/// The case with this raw value, or nothing.
template <class E>
std::optional<E> fromRawValue(std::string_view raw) {
    for (E value : allCases<E>())
        if (rawValue(value) == raw) return value;
    return std::nullopt;
}

} // namespace tessivo
