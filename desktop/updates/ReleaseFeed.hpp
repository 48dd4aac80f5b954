#pragma once

#include <QString>
#include <QStringList>
#include <optional>

class QByteArray;

namespace Hilalor::Desktop {

/// A release of the program.
struct Release {
  QString version;
  QStringList news;  ///< What is new, a paragraph each.
  QString page;      ///< The address of the page about it; empty where there is none.
  friend bool operator==(const Release&, const Release&) = default;
};

/// The newest stable release of a list, which has none if it names no release that can be
/// understood.
struct ReleaseFeed {
  std::optional<Release> newest;

  /// Reads a list of releases as AppStream writes it: a `releases` element, in a file of its
  /// own or within a component's. None where it is not one.
  [[nodiscard]] static std::optional<ReleaseFeed> parse(const QByteArray& xml);
};

/// Whether the version is later than the other, by its numbers from left to right: 1.10 is later
/// than 1.9.
[[nodiscard]] bool isLaterVersion(const QString& version, const QString& than);

}  // namespace Hilalor::Desktop
