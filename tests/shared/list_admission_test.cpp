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

TEST(ListAdmission, FindsWhatTheListHoldsInAnyLetterCase) {
  KeyedCollection<int> entries;
  EXPECT_FALSE(collectionHasKey(entries, u"AB-1"));
  entries.add(1, u"AB-1");
  EXPECT_TRUE(collectionHasKey(entries, u"ab-1"));
  EXPECT_FALSE(collectionHasKey(entries, u"AB-10"));
}

}  // namespace
}  // namespace keyscout::test
