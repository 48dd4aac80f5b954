#include <QApplication>

#include "app/AppDelegate.hpp"
#include "app/SharedObjects.hpp"
#include "desktop/LinuxApplication.hpp"
#include "desktop/LinuxStatusBar.hpp"
#include "desktop/QtRunLoop.hpp"
#include "desktop/SystemClock.hpp"
#include "desktop/store/SqliteDefaultsStore.hpp"
#include "platform/Platform.hpp"
