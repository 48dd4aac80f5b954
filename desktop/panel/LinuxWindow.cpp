#include "desktop/panel/LinuxWindow.hpp"

#include <QCloseEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <QWidget>
#include <QWindow>
#include <utility>

#include "desktop/display/Sway.hpp"
#include "desktop/display/WindowAppearance.hpp"
#include "desktop/process/Heap.hpp"
#include "ui/Spoken.hpp"

namespace Hilalor::Desktop {
namespace {

// As window managers make them, of the higher ones.
constexpr int kTitleBarHeight = 32;

QSize whole(Size size) {
  return QSizeF(size.width, size.height).toSize();
}

}  // namespace

class LinuxWindow::Frame final : public QWidget {
 public:
  Frame(QWidget* screen, const WindowProperties& properties, std::function<void()> onWillClose)
      : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                             Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint |
                             Qt::WindowStaysOnTopHint),
        onWillClose_(std::move(onWillClose)) {
    Ui::setSpokenRole(*this, QAccessible::Window);
    setWindowTitle(QString::fromUtf8(properties.title));
    setWindowIcon(screen->windowIcon());
    setMinimumSize(whole(properties.minimumSize));
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins({});
    layout->addWidget(screen);
    const QSize room = this->screen()->availableSize() - QSize(0, kTitleBarHeight);
    resize(whole(properties.contentSize).boundedTo(room));
    QRect place(QPoint(0, 0), size());
    place.moveCenter(this->screen()->availableGeometry().center());
    move(place.topLeft());
    Sway::floatWhenShown(windowTitle());
  }

  void disown() { onWillClose_ = nullptr; }

 protected:
  void closeEvent(QCloseEvent* event) override {
    event->accept();
    if (const auto told = std::exchange(onWillClose_, nullptr)) told();
  }

 private:
  std::function<void()> onWillClose_;
};

LinuxWindow::LinuxWindow(std::unique_ptr<QWidget> screen, const WindowProperties& properties,
                         std::function<void()> onWillClose)
    : frame_(new Frame(screen.release(), properties, std::move(onWillClose))) {}

LinuxWindow::~LinuxWindow() {
  frame_->disown();
  frame_->hide();
  QObject::connect(frame_, &QObject::destroyed, giveBackFreeMemory);
  frame_->deleteLater();
}

void LinuxWindow::setAppearance(Appearance appearance) {
  setWindowAppearance(*frame_, appearance);
}

void LinuxWindow::makeKeyAndOrderFront() {
  // One on another workspace or put away as an icon comes to the user as a new one does; not every
  // window manager brings it when it is asked to.
  const bool isOnScreen = frame_->isVisible() && frame_->windowHandle()->isExposed();
  if (!isOnScreen) frame_->hide();
  frame_->setWindowState(frame_->windowState() & ~Qt::WindowMinimized);
  frame_->show();
  frame_->raise();
  frame_->activateWindow();
}

}  // namespace Hilalor::Desktop
