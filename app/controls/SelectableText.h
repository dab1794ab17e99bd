#pragma once

#include "app/controls/TextLabel.h"

namespace tessivo {

/// A text whose words can be selected with the mouse and copied. (A QLabel's lines stand closer than the
/// role's, and it breaks them at blanks alone: a long name would run out of its column.)
class SelectableText final : public TextLabel {
    Q_OBJECT
public:
    explicit SelectableText(const QString& text = {}, TextRole role = TextRole::body,
                            ColorRole color = ColorRole::text1, QWidget* parent = nullptr);

protected:
    QList<QTextLayout::FormatRange> highlights() const override;
    void textHasChanged() override;
    void mousePressEvent(QMouseEvent*) override;
    void mouseMoveEvent(QMouseEvent*) override;
    void mouseDoubleClickEvent(QMouseEvent*) override;
    void focusOutEvent(QFocusEvent*) override;

private:
    QString selectedText() const;
    void select(qsizetype anchor, qsizetype end);

    qsizetype m_anchor = 0;
    qsizetype m_end = 0;
    QAction* m_copy;
};

} // namespace tessivo
