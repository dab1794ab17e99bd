#include "app/pages/frame/OverrideControls.h"

#include "app/controls/Checkbox.h"
#include "app/controls/GrowingTextField.h"
#include "app/layout/ColumnLayout.h"
#include "app/look/Metrics.h"
#include "app/model/QtText.h"

namespace tessivo {

OverrideControls::OverrideControls(TestID test, QWidget* parent)
    : QWidget(parent),
      m_notIncluded(new Checkbox("Not part of this sale (leave it out of the report)")),
      m_note(new GrowingTextField("Noticed a problem the test can't catch? Describe it here.")) {
    m_note->setAccessibleName("Problem note for " + qt(title(test)));
    auto* layout = new ColumnLayout(this);
    layout->add(m_notIncluded, 0, Qt::AlignLeft);
    layout->add(m_note, PageHead::overrideInner);
    connect(m_notIncluded, &Checkbox::clicked, this, &OverrideControls::publish);
    connect(m_note, &GrowingTextField::textEdited, this, [this](const QString& note) {
        m_problem = note.isEmpty() ? std::nullopt : std::optional(note.toStdString());
        publish();
    });
}

void OverrideControls::setOverride(const std::optional<UserOverride>& override) {
    m_notIncluded->setChecked(override && override->notIncluded);
    auto problem = override ? override->problem : std::nullopt;
    if (problem == m_problem) return; // as the field itself told it, at every key
    m_problem = std::move(problem);
    m_note->setText(qt(m_problem.value_or("")));
}

void OverrideControls::publish() {
    const UserOverride override{m_notIncluded->isChecked(), m_problem};
    const bool empty = !override.notIncluded && override.problem.value_or("").empty();
    Q_EMIT changed(empty ? std::nullopt : std::optional(override));
}

} // namespace tessivo
