#include "app/pages/tones/HeadphonesView.h"

#include "app/controls/SymbolView.h"
#include "app/controls/TextLabel.h"
#include "app/look/Metrics.h"
#include "app/model/QtText.h"
#include "app/pages/tones/ToneBlock.h"
#include "app/readers/Readers.h"

#include <QHBoxLayout>

namespace tessivo {

namespace {

constexpr auto pollInterval = std::chrono::seconds(1);
constexpr int symbolGap = 14;

} // namespace

const char* const HeadphonesView::how =
    "Plug wired headphones into the headphone jack and put them on, with the volume low. When the Mac sees "
    "them, play each side: the tone should come only from that ear, clear, with no crackle. Wiggling the "
    "plug a little shouldn't cut the sound. Bluetooth and USB headphones don't count.";

HeadphonesView::HeadphonesView(const PageContext& context, QWidget* parent)
    : LiveContent(parent), m_model(context.model) {
    auto* card = new Panel;
    card->add(makeStatus());
    add(card);
    m_left = addBlock("Left ear", "left", &HeadphoneTest::left, true);
    m_right = addBlock("Right ear", "right", &HeadphoneTest::right, false);
    connect(&m_model, &AppModel::stateChanged, this, &HeadphonesView::follow);
    follow();
}

QWidget* HeadphonesView::makeStatus() {
    m_symbol = new SymbolView("headphones.circle.fill", SymbolSize::pageHead, ColorRole::grayGlyph);
    m_status = new TextLabel({}, TextRole::headline);
    m_output = new TextLabel({}, TextRole::callout, ColorRole::text2);
    m_output->setMaximumLines(1);
    auto* texts = new Column;
    texts->add(m_status);
    texts->add(m_output);

    auto* status = new QWidget;
    auto* row = new QHBoxLayout(status);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(symbolGap);
    row->addWidget(m_symbol);
    row->addWidget(texts, 1, Qt::AlignVCenter);
    // The second line comes and goes; what stands below stays.
    status->setMinimumHeight(theme().lineHeight(TextRole::headline) + theme().lineHeight(TextRole::callout));
    return status;
}

ToneBlock* HeadphonesView::addBlock(const QString& title, const QString& side,
                                    ManualAnswer HeadphoneTest::* answer, bool left) {
    auto* block = new ToneBlock(title, "Heard it clearly, in that ear only?", "Missing or crackly");
    block->setPlayHint("Plays a tone in the " + side + " ear");
    connect(block, &ToneBlock::play, this, [=, this] { play(left); });
    connect(block, &ToneBlock::answered, this, [=, this](ManualAnswer given) {
        if (!m_model.state().headphones && given == ManualAnswer::unanswered) return;
        m_model.change([=](SessionState& state) {
            if (!state.headphones) state.headphones.emplace();
            (*state.headphones).*answer = given;
        });
    });
    add(block, Space::block);
    return block;
}

void HeadphonesView::appear() {
    m_player.emplace(m_model.platform().toneOutput());
    m_poll = std::make_unique<Poll>(m_model.platform().scheduler(), pollInterval, [this] { scan(); });
}

void HeadphonesView::disappear() {
    m_poll.reset();
    m_player.reset();
}

void HeadphonesView::play(bool left) {
    if (!m_player) return;
    // The plug may have been pulled since the last look; the tone would then come from the speakers.
    scan();
    if (m_jack) m_player->play(left, !left);
}

void HeadphonesView::scan() {
    auto jack = HeadphoneDetect::find(readAudioOutputs(m_model.platform().audioObjects()));
    m_player->route(jack ? std::optional(jack->id) : std::nullopt);
    const bool changed = jack != m_jack;
    m_jack = std::move(jack);
    const auto& record = m_model.state().headphones;
    if (m_jack && !(record && record->detected))
        m_model.change([this](SessionState& state) {
            if (!state.headphones) state.headphones.emplace();
            state.headphones->detected = true;
            state.headphones->jackName = m_jack->name;
        });
    if (changed) follow();
}

void HeadphonesView::follow() {
    const HeadphoneTest test = m_model.state().headphones.value_or(HeadphoneTest{});
    m_symbol->setSymbol(m_symbol->symbolName(), m_jack ? ColorRole::accent : ColorRole::grayGlyph);
    if (m_jack)
        m_status->setText("Headphones in the jack");
    else if (test.detected)
        m_status->setText("Headphones were seen; plug them back in to play");
    else
        m_status->setText("Waiting for wired headphones");
    m_output->setVisible(m_jack.has_value());
    if (m_jack) m_output->setText("Output: " + qt(m_jack->name));

    const auto plugFirst = "Plug wired headphones into the jack first";
    m_left->setPlayable(m_jack.has_value(), plugFirst);
    m_right->setPlayable(m_jack.has_value(), plugFirst);
    m_left->setAnswer(test.left);
    m_right->setAnswer(test.right);
}

} // namespace tessivo
