#include "desktop/diagnosis/Topics.hpp"

#include "desktop/diagnosis/BusDiagnosis.hpp"
#include "desktop/diagnosis/DisplayDiagnosis.hpp"
#include "desktop/diagnosis/FilesDiagnosis.hpp"

namespace Hilalor::Desktop {

void diagnose(std::string_view topic, const Tell& tell) {
  if (topic == "files") diagnoseFiles(tell);
  if (topic == "display") diagnoseDisplay(tell);
  if (topic == "bus") diagnoseSessionBus(tell);
  if (topic == "location") diagnoseLocation(tell);
  if (topic == "sound") diagnoseSound(tell);
}

}  // namespace Hilalor::Desktop
