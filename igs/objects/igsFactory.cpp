#include "igs/objects/igsFactory.h"

#include <climits>
#include <unordered_map>
#include <vector>

#include "igs/file/igsFile.h"
#include "igs/geometry/igs100.h"
#include "igs/geometry/igs102.h"
#include "igs/geometry/igs104.h"
#include "igs/geometry/igs110.h"
#include "igs/geometry/igs116.h"
#include "igs/geometry/igs123.h"
#include "igs/geometry/igs124.h"
#include "igs/geometry/igs126.h"
#include "igs/geometry/igs128.h"
#include "igs/geometry/igsPointset.h"
#include "igs/geometry/igsPolyline.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsPlaceholders.h"

namespace {
struct Registration {
  int type;
  int min_form;
  int max_form;
  igsObject* (*make_prototype)();
};

template <class Entity>
igsObject* make() {
  return new Entity;
}

// Every concrete entity class of the library: type, first and last form, class. A type or form that stands in no row is
// read as igsUnknown.
constexpr Registration registrations[] = {
    {-1, -INT_MAX, INT_MAX, make<igsUnknown>},  //
    {0, -INT_MAX, INT_MAX, make<igsNull>},      //
    {100, 0, 0, make<igs100>},                  //
    {102, 0, 0, make<igs102>},                  //
    {104, 0, 3, make<igs104>},                  //
    {106, 1, 3, make<igsPointset>},             //
    {106, 11, 13, make<igsPolyline>},           //
    {110, 0, 0, make<igs110>},                  //
    {116, 0, 0, make<igs116>},                  //
    {123, 0, 0, make<igs123>},                  //
    {124, 0, 1, make<igs124>},                  //
    {126, 0, 5, make<igs126>},                  //
    {128, 0, 9, make<igs128>},                  //
};

using Registry = std::unordered_map<int, std::vector<igsFactoryShop>>;
}  // namespace

bool igsFactory::m_making_prototypes = false;

namespace {
// Never destroyed: the prototypes live as long as the process.
Registry& registry(bool& making_prototypes) {
  static Registry& shops = *[&making_prototypes] {
    auto* const made = new Registry;
    making_prototypes = true;
    for (const Registration& row : registrations) {
      (*made)[row.type].emplace_back(row.min_form, row.max_form, row.make_prototype());
    }
    making_prototypes = false;
    return made;
  }();
  return shops;
}
}  // namespace

igsFactory::igsFactory(igsEntityType type, int min_form, int max_form, igsObject* prototype) {
  if (prototype->manager() != nullptr) prototype->file().release_prototype(prototype);
  registry(m_making_prototypes)[type].emplace_back(min_form, max_form, prototype);
}

igsObject* igsFactory::make_one(igsEntityType type, int form) {
  const Registry& shops = registry(m_making_prototypes);
  if (const auto found = shops.find(type); found != shops.end()) {
    for (const igsFactoryShop& shop : found->second) {
      if (shop.min_form_number() <= form && form <= shop.max_form_number()) return shop.object()->make_one();
    }
  }
  return new igsUnknown;
}
