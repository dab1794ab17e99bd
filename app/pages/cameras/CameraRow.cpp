#include "app/pages/cameras/CameraRow.h"

#include "app/controls/Button.h"
#include "app/controls/SymbolView.h"
#include "app/controls/TextLabel.h"
#include "app/layout/SplitRow.h"
#include "app/layout/WrapRow.h"
#include "app/look/Metrics.h"
#include "app/pages/frame/AnswerButtons.h"

#include <QHBoxLayout>

namespace tessivo {

namespace {

const QString openCamera = QStringLiteral("Open Camera");
const QString closeCamera = QStringLiteral("Close Camera");

} // namespace

CameraRow::CameraRow(const QString& name, const CameraMonitor& monitor, Scheduler& scheduler, QWidget* parent)
    : Column(parent),
      m_monitor(monitor),
      m_scheduler(scheduler),
      m_button(new Button(openCamera, QStringLiteral("video"))),
      m_stage(new Column),
      m_answer(new AnswerButtons(QStringLiteral("Picture looks right"), QStringLiteral("Problem"))) {
    setAccessibleName(name);
    m_button->setAccessibleDescription(name);
    m_button->setWidthTexts({openCamera, closeCamera});
    m_answer->setQuestion(name);
    m_stage->hide();

    auto* title = new TextLabel(name, TextRole::headline);
    title->setMaximumLines(1);
    column().setContentsMargins(Space::block, Space::block, Space::block, Space::block);
    add(new SplitRow(title, m_button));
    add(m_stage, Space::l);
    add(m_answer, Space::l + 2);

    connect(m_button, &Button::clicked, this, &CameraRow::toggled);
    connect(m_answer, &AnswerButtons::answered, this, &CameraRow::answered);
}

QWidget* CameraRow::makeNote() {
    m_sending = new QWidget;
    auto* line = new QHBoxLayout(m_sending);
    line->setContentsMargins(0, 0, 0, 0);
    line->setSpacing(Space::s);
    line->addWidget(new SymbolView(QStringLiteral("video.fill"), SymbolSize::glyph, ColorRole::green));
    line->addWidget(
        new TextLabel(QStringLiteral("Sending a picture"), TextRole::controlStrong, ColorRole::green), 1);
    // Its room stays when it is hidden.
    QSizePolicy policy = m_sending->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_sending->setSizePolicy(policy);
    m_sending->setMinimumHeight(theme().lineHeight(TextRole::body));
    m_sending->hide();
    return m_sending;
}

void CameraRow::setOpen(bool open, bool sending) {
    m_button->setLabel(open ? closeCamera : openCamera,
                       open ? QStringLiteral("video.slash") : QStringLiteral("video"));
    if (open && !m_picture) {
        m_picture = new WrapRow(nullptr, Space::xxl, Space::m);
        m_picture->add(new CameraPreview(m_monitor, m_scheduler), {}, Qt::AlignTop);
        m_picture->add(makeNote(), {}, Qt::AlignTop);
        m_stage->add(m_picture);
    } else if (!open) {
        delete std::exchange(m_picture, nullptr);
    }
    m_stage->setVisible(open);
    if (open) m_sending->setVisible(sending);
}

void CameraRow::setAnswer(ManualAnswer answer) {
    m_answer->setAnswer(answer);
}

} // namespace tessivo
