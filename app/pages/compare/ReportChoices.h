#pragma once

#include "kit/report/ConditionReport.h"

#include <QStringList>

namespace tessivo {

/// What two pickers offer of the reports in History, as places in its list: those of one Mac, the newest
/// first, and whatever else a search finds. The list outlives it and stays as it is.
class ReportChoices final {
public:
    static constexpr std::size_t most = 50;

    explicit ReportChoices(const std::vector<ConditionReport>& history) : m_history(history) {}

    /// The first place with this very report, or else with its identifier; nothing if it isn't there.
    std::optional<std::size_t> placeOf(const ConditionReport& report) const;
    /// The report at `place` and at most 50 others of its Mac.
    std::vector<std::size_t> ofSameMac(std::size_t place) const;
    /// The newest reports, at most 50 and not that at `except`, whose date, Mac, serial number and tally
    /// hold each of the words in any case. No words find none.
    std::vector<std::size_t> found(const QString& words, std::size_t except) const;
    bool hasMore(const std::vector<std::size_t>& listed) const { return m_history.size() > listed.size(); }

    /// "Mar 5, 2026, 4:07 PM · MacBook Air (M2, 2022) · J4N7WQX2PL"; a name of any length is cut.
    QString label(std::size_t place) const;

private:
    const std::vector<ConditionReport>& m_history;
    mutable QStringList m_searched; ///< of each place what is searched, made for the first search
};

} // namespace tessivo
