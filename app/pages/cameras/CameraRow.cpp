#include "app/pages/cameras/CameraRow.h"

#include "app/controls/Button.h"
#include "app/controls/StatusBadge.h"
#include "app/controls/TextLabel.h"
#include "app/look/Metrics.h"
#include "app/pages/frame/AnswerButtons.h"

#include <QHBoxLayout>

namespace tessivo {

namespace {

const QString openCamera = QStringLiteral("Open Camera");
const QString closeCamera = QStringLiteral("Close Camera");

} // namespace

/// The picture with its note beside it, or under it where the width is small. The note's room stays when it
/// is empty.
class PictureLayout final : public FlowingLayout {
public:
    PictureLayout(QWidget* parent, QWidget* note) : FlowingLayout(parent) {
        addChildWidget(note);
        m_note = new QWidgetItem(note);
        addItem(m_note);
    }

protected:
    int arrange(const QRect& rect, bool apply) const override {
        const bool under = rect.width() < sideBySide;
        QRect picture(rect.topLeft(), QSize());
        for (QLayoutItem* item : m_items) {
            if (item == m_note) continue;
            const int width = std::min(rect.width(), CameraPreview::largestWidth);
            picture.setSize({width, itemHeight(item, width)});
            if (apply) item->setGeometry(picture);
        }
        const QPoint corner = under ? picture.bottomLeft() + QPoint(0, 1 + Space::m)
                                    : picture.topRight() + QPoint(1 + Space::xxl, 0);
        const int width = rect.right() + 1 - corner.x();
        const int height = itemHeight(m_note, width);
        if (apply) m_note->setGeometry(QRect(corner, QSize(width, height)));
        return std::max(picture.bottom(), corner.y() + height - 1) + 1 - rect.top();
    }
    int naturalWidth() const override { return sideBySide; }

private:
    static constexpr int sideBySide = 800;
    QLayoutItem* m_note;
};

CameraRow::CameraRow(const QString& name, const CameraMonitor& monitor, Scheduler& scheduler, QWidget* parent)
    : Column(parent),
      m_monitor(monitor),
      m_scheduler(scheduler),
      m_button(new Button(openCamera, QStringLiteral("video"))),
      m_stage(new QWidget),
      m_answer(new AnswerButtons(QStringLiteral("Picture looks right"), QStringLiteral("Problem"))) {
    setAccessibleName(name);
    m_button->setAccessibleDescription(name);
    m_button->setWidthTexts({openCamera, closeCamera});
    m_answer->setQuestion(name);
    m_picture = new PictureLayout(m_stage, makeNote());
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
    m_sending->setVisible(sending);
    if (open == (m_preview != nullptr)) return;
    if (open) {
        m_preview = new CameraPreview(m_monitor, m_scheduler);
        m_picture->addWidget(m_preview);
        m_preview->show();
    } else {
        delete std::exchange(m_preview, nullptr);
    }
    m_stage->setVisible(open);
}

void CameraRow::setAnswer(ManualAnswer answer) {
    m_answer->setAnswer(answer);
}

} // namespace tessivo
