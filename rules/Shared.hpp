#pragma once

#include <cassert>

namespace Hilalor {

namespace Program {
class SharedObjects;
}

/// Lets the one object of a type be reached by its type's name. The program, which owns the object,
/// puts it in place and takes it away; nothing else can. Rules and screens do not ask here: the
/// object is handed to them.
template <typename Object>
class Shared {
 public:
  /// The program's one, which must exist.
  [[nodiscard]] static Object& shared() {
    assert(shared_ != nullptr);
    return *shared_;
  }

 private:
  friend class Program::SharedObjects;
  inline static Object* shared_ = nullptr;
};

}  // namespace Hilalor
