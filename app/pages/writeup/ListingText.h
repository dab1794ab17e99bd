#pragma once

#include "app/controls/Theme.h"

#include <QTextEdit>

namespace tessivo {

/// A listing to read and select: plain text in a scrolling box.
class ListingText final : public QTextEdit {
    Q_OBJECT

public:
    explicit ListingText(const QString& name, QWidget* parent = nullptr);

    /// Plain text; nothing happens when it is the one shown.
    void setListing(const QString& text);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tessivo
