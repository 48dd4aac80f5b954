#include "desktop/updates/UpdateDialog.hpp"

#include <QPainter>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "ui/Button.hpp"
#include "ui/Containers.hpp"
#include "ui/Stack.hpp"
#include "ui/Text.hpp"

namespace Hilalor::Desktop {

using namespace Ui;

namespace {

constexpr int kWidth = 360;
constexpr Insets kPadding = Insets::all(20);
constexpr int kSpacing = 12;
constexpr int kLineSpacing = 4;
constexpr int kButtonSpacing = 8;
constexpr int kParagraphSpacing = 6;
constexpr int kLongestNews = 220;
constexpr int kIndicatorSide = 16;
constexpr TextStyle kTitleStyle{.size = 14, .weight = QFont::DemiBold};
constexpr TextStyle kTextStyle{.size = 12, .color = &Colors::secondary};
constexpr TextStyle kNewsStyle{.size = 12};
constexpr TextStyle kButtonStyle{.size = 13};

QWidget* heading(const QString& title, const QString& text) {
  return column({.spacing = kLineSpacing},
                {new Text(kTitleStyle, title), new Text(kTextStyle, text)});
}

/// The paragraphs, which scroll where there are many.
QWidget* newsColumn(const QStringList& paragraphs) {
  auto* texts = column({.spacing = kParagraphSpacing}, {});
  for (const QString& paragraph : paragraphs)
    texts->layout()->addWidget(new Text(kNewsStyle, paragraph));
  const int textWidth = byType(kWidth) - kPadding.leading - kPadding.trailing;
  texts->setFixedWidth(textWidth);
  auto* scrolling = new ScrollColumn(texts);
  scrolling->setFixedHeight(std::clamp(texts->heightForWidth(textWidth), 0, kLongestNews));
  return scrolling;
}

}  // namespace

UpdateDialog::UpdateDialog(QWidget* owner, QString version,
                           std::function<void(const Release&)> onDownload)
    : QDialog(owner), version_(std::move(version)), onDownload_(std::move(onDownload)) {
  setAttribute(Qt::WA_DeleteOnClose);
  // Light or dark as the owner.
  setAttribute(Qt::WA_WindowPropagation);
  setWindowFlag(Qt::WindowStaysOnTopHint);
  setWindowTitle(QStringLiteral("Hilalor Updates"));
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

void UpdateDialog::setState(const UpdateState& state) {
  if (content_ != nullptr) {
    // It may be the one whose button was pressed.
    content_->hide();
    layout()->removeWidget(content_);
    content_->deleteLater();
  }
  content_ = std::visit([this](const auto& one) { return content(one); }, state);
  content_->setFixedWidth(byType(kWidth));
  layout()->addWidget(content_);
}

QWidget* UpdateDialog::content(LookingForReleases) {
  return row({.spacing = kSpacing, .padding = kPadding},
             {new ActivityIndicator(kIndicatorSide),
              new Text(kTextStyle, QStringLiteral("Looking for updates…"))});
}

QWidget* UpdateDialog::content(NoNewerRelease) {
  return message(QStringLiteral("Hilalor is up to date."),
                 QStringLiteral("Version %1 is the newest release.").arg(version_));
}

QWidget* UpdateDialog::content(FeedOutOfReach) {
  return message(QStringLiteral("Could not look for updates."),
                 QStringLiteral("The list of releases could not be reached. Try again later."));
}

QWidget* UpdateDialog::content(const Release& release) {
  auto* news = newsColumn(release.news);
  news->setVisible(!release.news.isEmpty());
  auto* later = new Button(
      {.text = QStringLiteral("Later"), .style = kButtonStyle}, [this] { close(); },
      ButtonLook::bordered);
  const auto download = [this, release] {
    onDownload_(release);
    close();
  };
  auto* now = new Button({.text = QStringLiteral("Download"), .style = kButtonStyle}, download,
                         ButtonLook::prominent);
  return column({.spacing = kSpacing, .padding = kPadding},
                {heading(QStringLiteral("Hilalor %1 is available.").arg(release.version),
                         QStringLiteral("You have version %1.").arg(version_)),
                 news, row({.spacing = kButtonSpacing}, {flexibleSpace(), later, now})});
}

QWidget* UpdateDialog::message(const QString& title, const QString& text) {
  auto* ok = new Button(
      {.text = QStringLiteral("OK"), .style = kButtonStyle}, [this] { close(); },
      ButtonLook::bordered);
  return column({.spacing = kSpacing, .padding = kPadding},
                {heading(title, text), row({}, {flexibleSpace(), ok})});
}

void UpdateDialog::paintEvent(QPaintEvent*) {
  QPainter(this).fillRect(rect(), Colors::of(*this).windowBackground);
}

}  // namespace Hilalor::Desktop
