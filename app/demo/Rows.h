#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <functional>

/// Small makers for the plain controls of the panel. A label is its control's name for a screen reader.
namespace tessivo::demo {

inline QFormLayout* formIn(QGroupBox* box) {
    auto* form = new QFormLayout(box);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    return form;
}

inline void addButtons(QFormLayout* form,
                       const std::vector<std::pair<QString, std::function<void()>>>& buttons) {
    auto* row = new QHBoxLayout;
    for (const auto& [text, action] : buttons) {
        auto* button = new QPushButton(text);
        QObject::connect(button, &QPushButton::clicked, button, action);
        row->addWidget(button);
    }
    row->addStretch();
    form->addRow(row);
}

inline QComboBox* addChoice(QFormLayout* form, const QString& label, const QStringList& choices,
                            const std::function<void(int)>& chosen = {}) {
    auto* box = new QComboBox;
    box->addItems(choices);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(12);
    if (chosen) QObject::connect(box, &QComboBox::activated, box, chosen);
    form->addRow(label, box);
    return box;
}

inline QCheckBox* addSwitch(QFormLayout* form, const QString& text,
                            const std::function<void(bool)>& switched) {
    auto* box = new QCheckBox(text);
    QObject::connect(box, &QCheckBox::toggled, box, switched);
    form->addRow(box);
    return box;
}

} // namespace tessivo::demo
