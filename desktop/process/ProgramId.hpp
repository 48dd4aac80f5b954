#pragma once

namespace Hilalor::Desktop {

/// Names the program on the bus, and its desktop entry and its icon (`packaging/`).
inline constexpr const char* kProgramId = "org.hilalor.Hilalor";

}  // namespace Hilalor::Desktop
