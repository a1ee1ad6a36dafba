#include "runtime/styled_text_printer.h"

#include <algorithm>

#include <QFont>
#include <QPainter>
#include <QTextLayout>
#include <QTextOption>

#include "runtime/graphics.h"
#include "runtime/text/toolkit_strings.h"

namespace peakwright {
namespace {

// The text is laid out in units of its own, a fraction of 1/72 inch, and drawn to scale. Lines and
// pages thus break at the same places on every device, and no advance is rounded to its dots.
constexpr int kLayoutUnits = 20;

constexpr double kTabStop = 80;  // As in the toolkit's text areas.

// Characters that are laid out at a time: what a long text takes is the text and one such stretch.
constexpr qsizetype kStretch = 4096;

QString ToPrintedForm(std::string_view text) {
  QString form = ToQString(text.substr(0, text.find_last_not_of(" \t\r\n") + 1));
  for (const QChar end : {u'\r', u'\n'}) form.replace(end, QChar::LineSeparator);
  return form;
}

/// Text beyond ASCII needs shaping, which takes twice the time: letters join, marks sit on others.
bool NeedsShaping(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char byte) { return static_cast<unsigned char>(byte) >= 0x80; });
}

QFont ToPrintedFont(QFont font, bool shaped) {
  if (shaped) font.setStyleStrategy(QFont::PreferOutline);
  font.setPixelSize(font.pixelSize() * kLayoutUnits);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

QTextOption PrintedOption() {
  QTextOption option;
  option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
  option.setTextDirection(Qt::LeftToRight);
  option.setUseDesignMetrics(true);
  option.setTabStopDistance(kTabStop * kLayoutUnits);
  return option;
}

/// The toolkit's own height of a line is rounded up, which can cost a page its last line.
double Height(const QTextLine& line) { return line.ascent() + line.descent() + line.leading(); }

}  // namespace

/// The lines of the text, one after the other, laid out stretch by stretch.
class StyledTextPrinter::Flow {
 public:
  Flow(std::string_view text, const QFont& font, int width)
      : text_(ToPrintedForm(text)), width_(width) {
    layout_.setFont(ToPrintedFont(font, NeedsShaping(text)));
    layout_.setTextOption(PrintedOption());
    layout_.setCacheEnabled(true);
  }

  int Width() const { return width_; }
  bool AtEnd() const { return done_ == text_.size(); }

  QTextLine Line() {
    if (next_ == lines_) LayOutStretch();
    return layout_.lineAt(next_);
  }

  void MoveOn() {
    done_ += layout_.lineAt(next_).textLength();
    ++next_;
  }

 private:
  void LayOutStretch() {
    const QString stretch = text_.mid(done_, kStretch);
    layout_.setText(stretch);
    layout_.beginLayout();
    for (QTextLine line = layout_.createLine(); line.isValid(); line = layout_.createLine()) {
      line.setLineWidth(width_ * kLayoutUnits);
    }
    layout_.endLayout();
    next_ = 0;
    lines_ = layout_.lineCount();
    // The stretch may end within its last line, which then begins the next stretch.
    if (done_ + stretch.size() < text_.size() && lines_ > 1) --lines_;
  }

  QString text_;
  int width_;
  QTextLayout layout_;
  qsizetype done_ = 0;  ///< Characters of the lines that lie behind.
  int next_ = 0;        ///< The current line of the stretch.
  int lines_ = 0;       ///< Lines of the stretch.
};

StyledTextPrinter::StyledTextPrinter(Graphics& graphics, std::string_view text, const QFont& font,
                                     int width)
    : graphics_(graphics), flow_(std::make_unique<Flow>(text, font, width)) {}

StyledTextPrinter::~StyledTextPrinter() = default;

bool StyledTextPrinter::Eof() const { return flow_->AtEnd(); }

void StyledTextPrinter::DrawBlock(int x, int y, int height) {
  QPainter* painter = graphics_.Painter();
  if (painter != nullptr) {
    painter->save();
    const double scale = graphics_.Scale(x + flow_->Width(), y + height);
    painter->scale(scale, scale);
    painter->translate(x, y);
    painter->scale(1.0 / kLayoutUnits, 1.0 / kLayoutUnits);
  }
  double used = 0;
  while (!flow_->AtEnd()) {
    const QTextLine line = flow_->Line();
    if (used > 0 && used + Height(line) > height * kLayoutUnits) break;
    if (painter != nullptr) line.draw(painter, QPointF(0, used));
    used += Height(line);
    flow_->MoveOn();
  }
  if (painter != nullptr) painter->restore();
}

}  // namespace peakwright
