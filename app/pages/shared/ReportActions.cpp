#include "app/pages/shared/ReportActions.h"

#include "app/controls/Button.h"
#include "app/layout/TileLayout.h"
#include "app/look/Metrics.h"
#include "app/pages/shared/ReportFlow.h"

namespace tessivo {

namespace {

// As narrow as three of them stand in a bar of 560 with its padding, and two in one of 380.
constexpr int gridButton = 166;
constexpr int columnButton = 160;

} // namespace

ReportActions::ReportActions(const PageContext& context, Source report, History history, Shape shape,
                             QWidget* parent)
    : QWidget(parent),
      m_context(context),
      m_report(std::move(report)),
      m_history(history),
      m_buttons(new TileLayout(this, shape == Shape::grid ? gridButton : columnButton, Space::button,
                               shape == Shape::grid ? 3 : 1, Space::button)) {
    // As high as its rows need: a fixed height would be that of its natural width.
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Minimum);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    addAction(QStringLiteral("Save as PDF…"), "doc.richtext", &ReportActions::savePDF);
    addAction(QStringLiteral("Print…"), "printer", &ReportActions::print);
    addAction(QStringLiteral("Copy as Text"), "doc.on.doc", &ReportActions::copyText);
    addAction(QStringLiteral("Save to History"), "clock.arrow.circlepath", &ReportActions::saveToHistory);
    addAction(QStringLiteral("Save Report File…"), "square.and.arrow.down", &ReportActions::saveFile)
        ->setToolTip(QStringLiteral("A file another Mac running Tessivo can add to its History"));
}

Button* ReportActions::addAction(const QString& text, const char* symbol, void (ReportActions::*action)()) {
    auto* button = new Button(text, QString::fromLatin1(symbol));
    connect(button, &Button::clicked, this, action);
    add(button);
    return button;
}

void ReportActions::add(Button* button) {
    button->setLeading(true);
    m_buttons->add(button);
}

void ReportActions::savePDF() {
    const ConditionReport report = m_report();
    if (ReportFlow::savePDF(m_context, report, window()) && m_history == History::keep)
        m_context.model.saveToHistory(report);
}

void ReportActions::print() {
    const ConditionReport report = m_report();
    ReportFlow::print(m_context, report, window());
    // Whatever the print panel's outcome.
    if (m_history == History::keep) m_context.model.saveToHistory(report);
}

void ReportActions::copyText() {
    ReportFlow::copyText(m_context, m_report());
    m_context.model.setMessage("Copied. Paste it into your listing or a message.");
}

void ReportActions::saveToHistory() {
    m_context.model.saveToHistory(m_report());
}

void ReportActions::saveFile() {
    ReportFlow::saveFile(m_context, m_report(), window());
}

} // namespace tessivo
