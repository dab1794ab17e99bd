#include "tests/kit/RandomSession.h"

#include <bit>
#include <limits>

namespace tessivo {

namespace {

using Source = std::mt19937_64;

std::uint64_t below(Source& source, std::uint64_t count) {
    return source() % count;
}

std::string randomText(Source& source) {
    static const std::vector<std::string> pieces = {
        "Mac14,2", " ",      "Tastatur", "garantía",           "\"",    "\\",   "/",
        "\n",      "\r\n",   "\t",       std::string(1, '\0'), "\x01",  "\x7F", "\u2028",
        "\uFEFF",  "\uFFFD", "日本語",   "👩‍👩‍👧", "עברית", "%@",   "</script>",
        "512 GB"};
    std::string text;
    for (std::uint64_t count = below(source, 6); count > 0; --count)
        text += pieces[below(source, pieces.size())];
    if (below(source, 200) == 0) text.append(5000, 'x');
    return text;
}

double randomDouble(Source& source) {
    using Limits = std::numeric_limits<double>;
    static constexpr double borders[] = {
        0.0,  -0.0, Limits::max(), Limits::lowest(), Limits::min(), Limits::denorm_min(),
        1e15, 1e20, 0x1p53,        0x1p63,           0x1p64,        0x1p70};
    switch (below(source, 3)) {
    case 0:
        return borders[below(source, std::size(borders))];
    case 1:
        return double(std::int64_t(source())) / 1e9;
    default:
        while (true) {
            if (const double any = std::bit_cast<double>(source()); std::isfinite(any)) return any;
        }
    }
}

template <class T>
void fill(Source& source, T& value);
template <class T>
void fill(Source& source, std::vector<T>& list);
template <class T>
void fill(Source& source, std::set<T>& set);
template <class K, class V>
void fill(Source& source, std::map<K, V>& map);

template <class T>
void fill(Source& source, std::optional<T>& value) {
    value.reset();
    if (below(source, 2)) fill(source, value.emplace());
}

template <class T>
void fill(Source& source, std::vector<T>& list) {
    list.resize(below(source, 5));
    for (T& entry : list)
        fill(source, entry);
}

template <class T>
void fill(Source& source, std::set<T>& set) {
    for (std::uint64_t count = below(source, 9); count > 0; --count) {
        T entry{};
        fill(source, entry);
        set.insert(entry);
    }
}

template <class K, class V>
void fill(Source& source, std::map<K, V>& map) {
    for (std::uint64_t count = below(source, 5); count > 0; --count) {
        K key{};
        fill(source, key);
        fill(source, map[key]);
    }
}

template <class T>
void fill(Source& source, T& value) {
    if constexpr (std::is_same_v<T, bool>) {
        value = below(source, 2);
    } else if constexpr (std::is_integral_v<T>) {
        const T borders[] = {std::numeric_limits<T>::min(), std::numeric_limits<T>::max(), T(0), T(1)};
        const auto kind = below(source, 3);
        value = kind == 0 ? borders[below(source, 4)] : kind == 1 ? T(below(source, 200)) : T(source());
    } else if constexpr (std::is_same_v<T, double>) {
        value = randomDouble(source);
    } else if constexpr (std::is_same_v<T, std::string>) {
        value = randomText(source);
    } else if constexpr (std::is_same_v<T, Date>) {
        value.seconds = below(source, 2) ? randomDouble(source)
                                         : 794419629.123456789 + double(below(source, 1 << 20)) / 3;
    } else if constexpr (std::is_same_v<T, Uuid>) {
        for (auto& byte : value.bytes)
            byte = std::uint8_t(source());
    } else if constexpr (std::is_enum_v<T>) {
        const auto cases = allCases<T>();
        value = cases[below(source, cases.size())];
    } else {
        using Members = boost::describe::describe_members<T, boost::describe::mod_any_access>;
        boost::mp11::mp_for_each<Members>([&](auto member) { fill(source, value.*member.pointer); });
    }
}

} // namespace

std::string RandomSession::text() {
    return randomText(m_source);
}

SessionState RandomSession::session() {
    SessionState state;
    fill(m_source, state);
    return state;
}

ConditionReport RandomSession::report() {
    ConditionReport report;
    fill(m_source, report);
    // From the year 1 to the year 9999, in whole seconds.
    report.created.seconds = double(below(m_source, 315'500'000'000)) - 63'113'904'000.0;
    return report;
}

} // namespace tessivo
