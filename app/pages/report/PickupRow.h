#pragma once

#include "app/model/Page.h"
#include "kit/report/ConditionReport.h"
#include "kit/vocabulary/TestStatus.h"

#include <QWidget>

namespace tessivo {

class Button;
class StatusGlyph;

/// One step of the pickup list on a card of its own. Time, glyph and button stand in columns, also where a
/// step leads to no page and has the time alone.
class PickupRow final : public QWidget {
    Q_OBJECT

public:
    PickupRow(const PickupStep& step, std::optional<Page> page, QWidget* parent = nullptr);

    std::optional<Page> page() const { return m_page; }
    void setStatus(std::optional<TestStatus> status);

Q_SIGNALS:
    void opened(tessivo::Page page);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::optional<Page> m_page;
    StatusGlyph* m_glyph = nullptr;
};

} // namespace tessivo
