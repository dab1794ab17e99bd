#include "app/pages/hardware/StorageView.h"

#include "app/controls/Button.h"
#include "app/controls/FactGrid.h"
#include "app/controls/LinkLabel.h"
#include "app/controls/Panel.h"
#include "app/controls/Picker.h"
#include "app/controls/TextLabel.h"
#include "app/layout/WrapRow.h"
#include "app/look/Metrics.h"
#include "app/model/QtText.h"
#include "kit/catalog/StorageCheck.h"
#include "kit/hardware/ByteText.h"
#include "kit/rules/RuleTexts.h"

#include <QUrl>
#include <algorithm>

namespace tessivo {

namespace {

enum Row { reported, driveSize, soldWith, fusionDrive };

constexpr std::int64_t smallestListed = 128;
constexpr int pickerWidth = 153;

bool isLink(const std::string& text) {
    const QUrl url(qt(text), QUrl::StrictMode);
    return url.isValid() && !url.host().isEmpty();
}

} // namespace

const char* const StorageView::how =
    "Compares the startup drive's size with the sizes Apple sold this model with, and with what your listing "
    "says. It checks size only, not the drive's health.";

StorageView::StorageView(const PageContext& context, QWidget* parent)
    : Column(parent),
      m_model(context.model),
      m_facts(new FactGrid),
      m_note(new TextLabel({}, TextRole::callout, ColorRole::text2)),
      m_source(new LinkLabel("Apple's Tech Specs for this model")),
      m_listing(new Picker("Your listing says")) {
    for (const char* label : {"macOS reports", "Drive size", "Sold with", "Fusion Drive"})
        m_facts->addFact(label);
    auto* panel = new Panel;
    panel->setPadding(Space::block, Space::xxs);
    panel->add(m_facts);
    add(panel);
    add(m_note, Space::heading);
    add(m_source, Space::heading, Qt::AlignLeft);
    auto* shownLess =
        new TextLabel("macOS shows less than the drive's size (about 245 GB on a 256 GB drive), because some "
                      "of it holds the system's startup and recovery parts.",
                      TextRole::callout, ColorRole::text2);
    add(shownLess, Space::heading);
    for (TextLabel* words : {m_note, shownLess})
        words->setMaximumWidth(theme().scaled(PageHead::howWidth));

    m_listing->setPreferredWidth(pickerWidth);
    auto* readAgain = new Button("Read Again");
    auto* row = new WrapRow;
    auto* listingLabel = new TextLabel("Your listing says", TextRole::body, ColorRole::text2);
    listingLabel->setMaximumLines(1);
    row->add(listingLabel);
    row->add(m_listing);
    row->add(readAgain, {}, Qt::AlignRight);
    add(row, Space::block);

    connect(m_source, &LinkLabel::clicked, this, [this] {
        if (const ModelSpec* spec = m_model.state().machine.spec(); spec && !spec->sources.empty())
            m_model.platform().desktop().openURL(spec->sources.front());
    });
    connect(m_listing, &Picker::activated, this, [this](int index) {
        const auto size = m_choices.at(std::size_t(index));
        m_model.change([=](SessionState& state) { state.listedStorageGB = size; });
    });
    connect(readAgain, &Button::clicked, this, [this] { m_model.readMachine(); });
    connect(&m_model, &AppModel::stateChanged, this, &StorageView::show);
    show();
}

void StorageView::show() {
    const MachineInfo& machine = m_model.state().machine;
    const ModelSpec* spec = machine.spec();
    const auto size = machine.marketedStorageGB();
    const QString unread = "Couldn't read it";

    m_facts->setValue(reported,
                      machine.storageBytes ? qt(ByteText::bytes(*machine.storageBytes, false)) : unread);
    m_facts->setValue(driveSize, size ? qt(ByteText::sizeLabel(*size)) : machine.storageBytes ? "—" : unread);
    m_facts->setValue(soldWith,
                      spec ? qt(Rules::sizeList(spec->storage)) : "This model isn't in Tessivo's list");
    const bool fusion = spec && !spec->fusion.empty();
    m_facts->setFactVisible(fusionDrive, fusion);
    if (fusion) m_facts->setValue(fusionDrive, qt(Rules::sizeList(spec->fusion)));

    const QString note = QString::fromStdString(Rules::replaceableDriveNote(machine));
    m_note->setText(note);
    m_note->setVisible(!note.isEmpty());
    m_source->setVisible(spec && !spec->sources.empty() && isLink(spec->sources.front()));

    const auto listed = m_model.state().listedStorageGB;
    m_choices = {std::nullopt};
    for (std::int64_t standard : StorageCheck::standardSizes())
        if (standard >= smallestListed) m_choices.push_back(standard);
    // A size that isn't offered, as an older session may hold, is kept and shown.
    if (std::ranges::count(m_choices, listed) == 0) m_choices.push_back(listed);
    QStringList labels;
    for (const auto& choice : m_choices)
        labels.append(choice ? qt(ByteText::sizeLabel(*choice)) : "Not set");
    m_listing->setChoices(labels);
    m_listing->setCurrentIndex(int(std::ranges::find(m_choices, listed) - m_choices.begin()));
}

} // namespace tessivo
