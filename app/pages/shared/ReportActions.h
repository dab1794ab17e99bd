#pragma once

#include "app/pages/shared/ReportFlow.h"

#include <QLayout>
#include <QWidget>

namespace tessivo {

class Button;
class TileLayout;

/// The five things that can be done with a report, as buttons. What they did is told in the model's
/// `message`, or in a dialog where something went wrong.
class ReportActions final : public QWidget {
    Q_OBJECT

public:
    /// `grid`: as many as three buttons a row.
    enum class Shape { column, grid };

    /// The report is asked for when a button is pressed, once for all that the button does with it.
    using Source = std::function<ConditionReport()>;

    ReportActions(const PageContext& context, Source report, ReportFlow::History history, Shape shape,
                  QWidget* parent = nullptr);

    /// A further button behind the five.
    void add(Button* button);

    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return layout()->heightForWidth(width); }

private:
    TileLayout* m_buttons;
};

} // namespace tessivo
