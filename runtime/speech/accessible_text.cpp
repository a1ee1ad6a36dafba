#include "runtime/speech/accessible_text.h"

#include <algorithm>
#include <tuple>

#include <QTextLayout>
#include <QWidget>

namespace peakwright {
namespace {

constexpr std::pair kNowhere{-1, -1};

}  // namespace

void* AccessibleText::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
  if (type == QAccessible::EditableTextInterface) {
    return static_cast<QAccessibleEditableTextInterface*>(this);
  }
  return QAccessibleWidget::interface_cast(type);
}

QAccessible::State AccessibleText::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.editable = true;
  state.selectableText = true;
  return state;
}

QString AccessibleText::text(QAccessible::Text kind) const {
  return kind == QAccessible::Value ? text(0, characterCount()) : QAccessibleWidget::text(kind);
}

void AccessibleText::setText(QAccessible::Text kind, const QString& text) {
  if (kind == QAccessible::Value) {
    replaceText(0, characterCount(), text);
  } else {
    QAccessibleWidget::setText(kind, text);
  }
}

int AccessibleText::selectionCount() const {
  Span selected;
  selection(0, &selected.first, &selected.second);
  return selected.first < selected.second ? 1 : 0;
}

QString AccessibleText::textBeforeOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                                         int* end) const {
  const int last = Has(offset) ? SpanAround(offset, type).first - 1 : -1;
  return Tell(Has(last) ? SpanAround(last, type) : kNowhere, start, end);
}

QString AccessibleText::textAtOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                                     int* end) const {
  return Tell(Has(offset) ? SpanAround(offset, type) : kNowhere, start, end);
}

QString AccessibleText::textAfterOffset(int offset, QAccessible::TextBoundaryType type, int* start,
                                        int* end) const {
  const int next = Has(offset) ? SpanAround(offset, type).second : characterCount();
  return Tell(next < characterCount() ? SpanAround(next, type) : kNowhere, start, end);
}

/// The text has one format throughout.
QString AccessibleText::attributes(int, int* start, int* end) const {
  *start = 0;
  *end = characterCount();
  return {};
}

void AccessibleText::replaceText(int start, int end, const QString& text) {
  if (!widget()->isVisible()) return;
  Select(Within(start), Within(end));
  ReplaceSelection(text);
}

AccessibleText::Span AccessibleText::WordAround(const QTextLayout& text, int offset) {
  const int next = text.nextCursorPosition(offset, QTextLayout::SkipWords);
  return {text.previousCursorPosition(next, QTextLayout::SkipWords), next};
}

int AccessibleText::Within(int offset) const { return std::clamp(offset, 0, characterCount()); }

AccessibleText::Span AccessibleText::SpanAround(int offset,
                                                QAccessible::TextBoundaryType type) const {
  if (type == QAccessible::CharBoundary) return {offset, Within(offset + 1)};
  if (type == QAccessible::NoBoundary) return {0, characterCount()};
  return UnitAround(offset, type);
}

QString AccessibleText::Tell(Span span, int* start, int* end) const {
  std::tie(*start, *end) = span;
  return span == kNowhere ? QString() : text(span.first, span.second);
}

void AccessibleText::SelectIfShown(int start, int end) {
  if (widget()->isVisible()) Select(Within(start), Within(end));
}

}  // namespace peakwright
