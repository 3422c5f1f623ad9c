#include "platform/local/local_library.h"

namespace keyscout {
namespace {

class FixedTitle final : public MessageTitleSource {
 public:
  String titleText() override { return u"Keyscout"; }
};

}  // namespace

std::shared_ptr<MessageTitleSource> LocalLibrary::createMessageTitleSource() {
  return std::make_shared<FixedTitle>();
}

}  // namespace keyscout
