#include "platform/local/local_library.h"

#include "platform/local/trace_services.h"

namespace keyscout {
namespace {

class FixedTitle final : public MessageTitleSource {
 public:
  String titleText() override { return u"Keyscout"; }
};

}  // namespace

LocalLibrary::LocalLibrary(std::shared_ptr<TraceService> trace)
    : trace_(trace ? std::move(trace) : std::make_shared<SilentTrace>()) {}

std::shared_ptr<MessageTitleSource> LocalLibrary::createMessageTitleSource() {
  return std::make_shared<FixedTitle>();
}

}  // namespace keyscout
