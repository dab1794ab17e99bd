#pragma once

#include "app/look/Accessible.h"
#include "app/look/Theme.h"

#include <QWidget>

namespace tessivo {

/// A step in a row of steps, met or not: "Click". Its value for a screen reader is "seen" or "not yet".
class Chip final : public QWidget, public AccessibleTraits {
    Q_OBJECT
public:
    /// `pendingSymbol` is drawn until it is met: "circle", or "circle.dotted" for an extra.
    explicit Chip(const QString& text, const QString& pendingSymbol = QStringLiteral("circle"),
                  QWidget* parent = nullptr);

    bool isMet() const { return m_met; }
    void setMet(bool met);
    void setText(const QString& text);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QAccessible::Role spokenRole() const override { return QAccessible::StaticText; }
    QString spokenName() const override { return m_text; }
    QString spokenValue() const override;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QString m_text;
    QString m_pending;
    bool m_met = false;
};

/// A small tag on a tint of the draft colour: "Draft: check before posting".
class Tag final : public QWidget, public AccessibleTraits {
    Q_OBJECT
public:
    explicit Tag(const QString& text, const QString& symbol = {}, QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    QAccessible::Role spokenRole() const override { return QAccessible::StaticText; }
    QString spokenName() const override { return m_text; }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QString m_text;
    QString m_symbol;
};

} // namespace tessivo
