#pragma once

#include "app/layout/ScrollColumn.h"
#include "app/pages/PageContext.h"

namespace tessivo {

class FactGrid;
class PickupRow;

/// The buyer's two-minute check: the facts to compare with the seller's report, and the quick tests in the
/// order of the report's own list, each with a way to its page.
class PickupView final : public ScrollColumn {
    Q_OBJECT

public:
    explicit PickupView(const PageContext& context, QWidget* parent = nullptr);

    /// The page of the test that a step repeats, where it repeats one.
    static std::optional<Page> pageOf(const PickupStep& step);

private:
    void follow();
    void makeRows(const std::vector<PickupStep>& steps);

    AppModel& m_model;
    std::vector<FactGrid*> m_facts; ///< one fact each
    Column* m_steps;
    std::vector<PickupStep> m_shown;
    std::vector<PickupRow*> m_rows;
};

} // namespace tessivo
