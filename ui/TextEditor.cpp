#include "ui/TextEditor.hpp"

#include <QPainter>
#include <QVBoxLayout>

#include "ui/Shapes.hpp"
#include "ui/TextStyle.hpp"

namespace Hilalor::Ui {
namespace {

constexpr double kRadius = 6;
constexpr double kOutlineOpacity = 0.3;
constexpr int kOutlineWidth = 1;

}  // namespace

TextEditor::TextEditor(int typeSize) {
  edit_.setFont(systemFont(typeSize));
  edit_.setFrameStyle(QFrame::NoFrame);
  edit_.viewport()->setAutoFillBackground(false);
  edit_.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kOutlineWidth, kOutlineWidth, kOutlineWidth, kOutlineWidth);
  layout->addWidget(&edit_);
  setFocusProxy(&edit_);
  connect(&edit_, &QPlainTextEdit::textChanged, this, [this] {
    if (onEdit) onEdit(text());
  });
}

QString TextEditor::text() const {
  // Qt's plain text would turn no-break spaces into spaces.
  QString text = edit_.document()->toRawText();
  return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
}

void TextEditor::setText(const QString& text) {
  const QSignalBlocker quiet(edit_);
  edit_.setPlainText(text);
  edit_.moveCursor(QTextCursor::End);
}

void TextEditor::paintEvent(QPaintEvent*) {
  const Colors& colors = Colors::of(*this);
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(smoothRect(rect(), kRadius), colors.textBackground);
  strokeWithin(painter, rect(), kRadius,
               QPen(weaker(colors, colors.secondary, kOutlineOpacity), kOutlineWidth));
}

}  // namespace Hilalor::Ui
