#pragma once

#include <functional>
#include <string>

namespace Hilalor {

/// Whether the desktop shows banners of ours.
enum class NotificationAuthorization {
  notDetermined = 0,
  denied = 1,
  authorized = 2,
  provisional = 3,  ///< Only quietly, in the history.
  ephemeral = 4,    ///< Only for the present session.
};

/// Ways for a banner to reach the user; options are combined with `|`.
enum class NotificationOptions : unsigned {
  none = 0,
  sound = 2,
  alert = 4,    ///< To be allowed to show banners at all.
  banner = 16,  ///< To show this one.
};

[[nodiscard]] constexpr NotificationOptions operator|(NotificationOptions one,
                                                      NotificationOptions other) {
  return static_cast<NotificationOptions>(static_cast<unsigned>(one) |
                                          static_cast<unsigned>(other));
}

/// Whether all the wanted options are among those given.
[[nodiscard]] constexpr bool contains(NotificationOptions given, NotificationOptions wanted) {
  return (static_cast<unsigned>(given) & static_cast<unsigned>(wanted)) ==
         static_cast<unsigned>(wanted);
}

/// A banner to be shown at once, with the desktop's usual sound for one. Plain text, UTF-8.
struct NotificationRequest {
  std::string identifier;  ///< Tells this request from every other.
  std::string title;
  std::string body;
  friend bool operator==(const NotificationRequest&, const NotificationRequest&) = default;
};

/// The desktop's banners. Nothing here waits, and no failure is reported. Main thread.
class NotificationCenter {
 public:
  /// Is asked how a banner is to be shown while the program is in use.
  class Delegate {
   public:
    virtual ~Delegate() = default;
    [[nodiscard]] virtual NotificationOptions willPresent(const NotificationRequest& request) = 0;
  };

  virtual ~NotificationCenter() = default;

  /// Null for none; the delegate must outlive the centre or be taken back.
  virtual void setDelegate(Delegate* delegate) = 0;

  /// Asks the user for permission; answers on a later pass whether it was given.
  virtual void requestAuthorization(NotificationOptions options,
                                    std::function<void(bool granted)> answer) = 0;

  /// Finds out afresh; answers on a later pass.
  virtual void authorizationStatus(std::function<void(NotificationAuthorization)> answer) = 0;

  /// Shows the banner, if it can.
  virtual void add(const NotificationRequest& request) = 0;
};

}  // namespace Hilalor
