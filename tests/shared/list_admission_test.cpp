#include "shared/list_admission.h"

#include <gtest/gtest.h>

#include "base/utf8.h"
#include "platform/local/local_brand_list.h"

namespace keyscout::test {
namespace {

TEST(ListAdmission, AsksWhetherABrandIsAuthorized) {
  keyscoutModule module;
  EXPECT_TRUE(isAuthorizedBrand(module, u"ACME")) << "no list authorizes all";
  const auto brands = std::make_shared<LocalBrandList>();
  module.authorizedBrands = brands;
  EXPECT_TRUE(isAuthorizedBrand(module, u"ACME")) << "an empty list authorizes all";
  brands->add(u"Acme");
  brands->addPlain(u"PLAIN");
  const std::pair<StringView, bool> cases[] = {
      {u"Acme", true}, {u"ACME", true}, {u"BOLT", false}, {u"PLAIN", false}, {u"", false}};
  for (const auto& [brand, expected] : cases)
    EXPECT_EQ(isAuthorizedBrand(module, brand), expected) << toUtf8(brand);
}

/// A host's list that, asked, takes itself away from the state.
class VanishingList final : public BrandCollection {
 public:
  VanishingList(keyscoutModule& module, std::string when)
      : module_(module), when_(std::move(when)) {}

  std::size_t count() const override {
    if (when_ == "count") module_.authorizedBrands = nullptr;
    return 1;
  }
  std::shared_ptr<const BrandItem> item(StringView brand) const override {
    if (when_ == "item") module_.authorizedBrands = nullptr;
    if (brand != brand_) throw platformFailure(PlatformError::invalidArgument, u"BrandList");
    return std::make_shared<BrandItem>();
  }

 private:
  keyscoutModule& module_;
  const std::string when_;
  const String brand_ = u"a brand too long to be kept inside the string";
};

TEST(ListAdmission, TheHostMayTakeTheListAwayWhileItIsAsked) {
  for (const char* when : {"count", "item"})
    for (const auto& [brand, expected] :
         {std::pair<StringView, bool>{u"a brand too long to be kept inside the string", true},
          {u"another", false}}) {
      keyscoutModule module;
      module.authorizedBrands = std::make_shared<VanishingList>(module, when);
      EXPECT_EQ(isAuthorizedBrand(module, brand), expected) << when;
      EXPECT_FALSE(module.authorizedBrands);
    }
}

TEST(ListAdmission, FindsWhatTheListHoldsInAnyLetterCase) {
  KeyedCollection<int> entries;
  EXPECT_FALSE(collectionHasKey(entries, u"AB-1"));
  entries.add(1, u"AB-1");
  EXPECT_TRUE(collectionHasKey(entries, u"ab-1"));
  EXPECT_FALSE(collectionHasKey(entries, u"AB-10"));
}

}  // namespace
}  // namespace keyscout::test
