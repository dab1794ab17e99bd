#pragma once

#include "app/look/Accessible.h"
#include "app/model/QtText.h"

#include <QWidget>

namespace tessivo {

/// One colour of the display test: its swatch, its name, and whether it has been shown. Read as one
/// element: the name, with the value "shown" or "not shown yet".
class ColorSwatch final : public QWidget, public AccessibleTraits {
    Q_OBJECT
public:
    explicit ColorSwatch(const std::string& color, QWidget* parent = nullptr);

    void setShown(bool shown);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QAccessible::Role spokenRole() const override { return QAccessible::StaticText; }
    QString spokenName() const override { return qt(m_color); }
    QString spokenValue() const override;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    std::string m_color;
    bool m_shown = false;
};

} // namespace tessivo
