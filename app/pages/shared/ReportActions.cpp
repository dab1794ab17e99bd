#include "app/pages/shared/ReportActions.h"

#include "app/controls/Button.h"
#include "app/layout/TileLayout.h"
#include "app/look/Metrics.h"

namespace tessivo {

namespace {

// So narrow that three fit into a bar of 560 with its padding, and two into one of 380.
constexpr int gridButton = 166;
constexpr int columnButton = 160;

} // namespace

ReportActions::ReportActions(const PageContext& context, Source report, ReportFlow::History history,
                             Shape shape, QWidget* parent)
    : QWidget(parent),
      m_buttons(new TileLayout(this, shape == Shape::grid ? gridButton : columnButton, Space::button,
                               shape == Shape::grid ? 3 : 1, Space::button)) {
    // As high as its rows need: a fixed height would be that of its natural width.
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    const auto addAction = [&](const char* text, const char* symbol, auto action) {
        auto* button = new Button(text, symbol);
        connect(button, &Button::clicked, this, [=] { action(report()); });
        add(button);
        return button;
    };
    addAction("Save as PDF…", "doc.richtext", [=, this](const ConditionReport& made) {
        ReportFlow::savePDF(context, made, window(), history);
    });
    addAction("Print…", "printer", [=, this](const ConditionReport& made) {
        ReportFlow::print(context, made, window(), history);
    });
    addAction("Copy as Text", "doc.on.doc", [=](const ConditionReport& made) {
        ReportFlow::copyText(context, made);
        context.model.setMessage("Copied. Paste it into your listing or a message.");
    });
    addAction("Save to History", "clock.arrow.circlepath",
              [=](const ConditionReport& made) { context.model.saveToHistory(made); });
    addAction("Save Report File…", "square.and.arrow.down", [=, this](const ConditionReport& made) {
        ReportFlow::saveFile(context, made, window());
    })->setToolTip("A file another Mac running Tessivo can add to its History");
}

void ReportActions::add(Button* button) {
    button->setLeading(true);
    m_buttons->add(button);
}

} // namespace tessivo
