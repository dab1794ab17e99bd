#include "app/pages/compare/ReportChoices.h"

#include "app/model/QtText.h"
#include "kit/support/Text.h"

#include <algorithm>

namespace tessivo {

namespace {

constexpr std::size_t longestPart = 80; // bytes

QString beginning(const std::string& text) {
    if (text.size() <= longestPart) return qt(Text::singleLine(text));
    return qt(Text::singleLine(Text::repaired(text.substr(0, longestPart)))) + u'…';
}

const std::string& macOf(const ConditionReport& report) {
    return report.machine.serial ? *report.machine.serial : report.machine.modelID;
}

} // namespace

std::optional<std::size_t> ReportChoices::placeOf(const ConditionReport& report) const {
    auto found = std::ranges::find(m_history, report);
    if (found == m_history.end()) found = std::ranges::find(m_history, report.id, &ConditionReport::id);
    if (found == m_history.end()) return std::nullopt;
    return std::size_t(found - m_history.begin());
}

std::vector<std::size_t> ReportChoices::ofSameMac(std::size_t place) const {
    const std::string& mac = macOf(m_history[place]);
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < m_history.size(); ++i) {
        // The report itself comes on top of the others.
        const bool hasRoom = places.size() < most + (i > place);
        if (i == place || (hasRoom && macOf(m_history[i]) == mac)) places.push_back(i);
    }
    return places;
}

std::vector<std::size_t> ReportChoices::found(const QString& words, std::size_t except) const {
    const QStringList wanted = words.simplified().toCaseFolded().split(u' ', Qt::SkipEmptyParts);
    std::vector<std::size_t> places;
    if (wanted.isEmpty()) return places;
    for (std::size_t i = std::size_t(m_searched.size()); i < m_history.size(); ++i)
        m_searched << (label(i) + u' ' + qt(m_history[i].countsText())).toCaseFolded();
    for (std::size_t i = 0; i < m_history.size() && places.size() < most; ++i) {
        const QString& text = m_searched[qsizetype(i)];
        const bool fits =
            std::ranges::all_of(wanted, [&](const QString& word) { return text.contains(word); });
        if (fits && i != except) places.push_back(i);
    }
    return places;
}

QString ReportChoices::label(std::size_t place) const {
    const ConditionReport& report = m_history[place];
    QString text = qt(report.created.shortText()) + " · " + beginning(report.machine.displayName());
    if (report.machine.serial) text += " · " + beginning(*report.machine.serial);
    return text;
}

} // namespace tessivo
