#pragma once

#include "app/look/Accessible.h"
#include "app/look/Theme.h"
#include "kit/vocabulary/TestStatus.h"

#include <QWidget>
#include <optional>

namespace tessivo {

/// The colours of a status: for its words, and for its symbol alone.
ColorRole wordColor(TestStatus status);
ColorRole glyphColor(TestStatus status);

/// A status as symbol and word on a capsule of its colour.
class StatusBadge final : public QWidget, public AccessibleTraits {
    Q_OBJECT
public:
    explicit StatusBadge(TestStatus status = TestStatus::notRun, QWidget* parent = nullptr);

    TestStatus status() const { return m_status; }
    void setStatus(TestStatus status);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    QAccessible::Role spokenRole() const override { return QAccessible::StaticText; }
    QString spokenName() const override;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    TestStatus m_status;
};

/// A status as its symbol alone; nothing is drawn for an absent one, but the room stays.
class StatusGlyph final : public QWidget, public AccessibleTraits {
    Q_OBJECT
public:
    explicit StatusGlyph(std::optional<TestStatus> status = {}, int size = 16, QWidget* parent = nullptr);

    std::optional<TestStatus> status() const { return m_status; }
    void setStatus(std::optional<TestStatus> status);
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    QAccessible::Role spokenRole() const override { return QAccessible::Graphic; }
    QString spokenName() const override;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    std::optional<TestStatus> m_status;
    int m_size;
};

/// Any symbol in any colour, hidden from screen readers: the picture beside a title or a row.
class SymbolView final : public QWidget, public AccessibleTraits {
    Q_OBJECT
public:
    SymbolView(const QString& name, int size, ColorRole color, QWidget* parent = nullptr);

    void setSymbol(const QString& name, ColorRole color);
    QString symbolName() const { return m_name; }
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

    QAccessible::Role spokenRole() const override { return QAccessible::Graphic; }
    void addSpokenState(QAccessible::State& state) const override {
        state.invisible = accessibleName().isEmpty();
    }

protected:
    void paintEvent(QPaintEvent*) override;

private:
    QString m_name;
    int m_size;
    ColorRole m_color;
};

} // namespace tessivo
