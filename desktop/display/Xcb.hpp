#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>
#include <vector>

namespace Hilalor::Desktop::Xcb {

struct Freed {
  void operator()(void* memory) const { std::free(memory); }  // NOLINT: XCB gives it by malloc
};

/// What XCB hands out for its receiver to free.
template <typename Memory>
using Owned = std::unique_ptr<Memory, Freed>;

/// Ignores a failure of the request: windows of other programs can go at any time.
inline void ignoreFailure(xcb_connection_t* connection, xcb_void_cookie_t request) {
  xcb_discard_reply(connection, request.sequence);
}

/// The answer to a request, or null where it failed.
template <typename Reply, typename Cookie>
[[nodiscard]] Owned<Reply> answer(Reply* (*reply)(xcb_connection_t*, Cookie, xcb_generic_error_t**),
                                  xcb_connection_t* connection, Cookie request) {
  xcb_generic_error_t* error = nullptr;
  Owned<Reply> answered(reply(connection, request, &error));
  const Owned<xcb_generic_error_t> failure(error);
  return answered;
}

[[nodiscard]] inline xcb_atom_t atom(xcb_connection_t* connection, std::string_view name) {
  const auto request =
      xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(name.size()), name.data());
  const auto reply = answer(xcb_intern_atom_reply, connection, request);
  return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_ATOM_NONE);
}

/// The window's property as values of that size; empty where it has none.
template <typename Value>
[[nodiscard]] std::vector<Value> values(xcb_connection_t* connection, xcb_window_t window,
                                        xcb_atom_t property) {
  constexpr std::uint32_t kMost = 4096;
  const auto request =
      xcb_get_property(connection, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0, kMost);
  const auto reply = answer(xcb_get_property_reply, connection, request);
  if (!reply || reply->format != 8 * sizeof(Value)) return {};
  const auto* first = static_cast<const Value*>(xcb_get_property_value(reply.get()));
  return {first, first + reply->value_len};
}

}  // namespace Hilalor::Desktop::Xcb
