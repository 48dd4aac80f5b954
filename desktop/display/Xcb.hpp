#pragma once

#include <xcb/xcb.h>

#include <cstdlib>
#include <memory>

namespace Hilalor::Desktop::Xcb {

struct Freed {
  void operator()(void* memory) const { std::free(memory); }  // NOLINT: XCB gives it by malloc
};

/// What XCB hands out for its receiver to free.
template <typename Memory>
using Owned = std::unique_ptr<Memory, Freed>;

/// Does not hear of the request's failure: windows of other programs go at any time.
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

}  // namespace Hilalor::Desktop::Xcb
