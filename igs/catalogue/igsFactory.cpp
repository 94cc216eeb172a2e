#include "igs/catalogue/igsFactory.h"

#include <array>
#include <climits>
#include <cstddef>
#include <iterator>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

#include "igs/annotation/igs202.h"
#include "igs/annotation/igs204.h"
#include "igs/annotation/igs206.h"
#include "igs/annotation/igs208.h"
#include "igs/annotation/igs210.h"
#include "igs/annotation/igs212.h"
#include "igs/annotation/igs214.h"
#include "igs/annotation/igs216.h"
#include "igs/annotation/igs218.h"
#include "igs/annotation/igs220.h"
#include "igs/annotation/igs222.h"
#include "igs/annotation/igs228.h"
#include "igs/annotation/igs230.h"
#include "igs/annotation/igsCentreLine.h"
#include "igs/annotation/igsSection.h"
#include "igs/annotation/igsWitnessLine.h"
#include "igs/curves/igs100.h"
#include "igs/curves/igs102.h"
#include "igs/curves/igs104.h"
#include "igs/curves/igs110.h"
#include "igs/curves/igs112.h"
#include "igs/curves/igs116.h"
#include "igs/curves/igs123.h"
#include "igs/curves/igs124.h"
#include "igs/curves/igs126.h"
#include "igs/curves/igs130.h"
#include "igs/curves/igsPointset.h"
#include "igs/curves/igsPolyline.h"
#include "igs/curves/igsSimpleClosedPlanarCurve.h"
#include "igs/file/igsFile.h"
#include "igs/objects/igsObject.h"
#include "igs/objects/igsPlaceholders.h"
#include "igs/objects/private/igsPrototypeScope.h"
#include "igs/solids/igs186.h"
#include "igs/solids/igs502.h"
#include "igs/solids/igs504.h"
#include "igs/solids/igs508.h"
#include "igs/solids/igs510.h"
#include "igs/solids/igs514.h"
#include "igs/structure/igs304_1.h"
#include "igs/structure/igs304_2.h"
#include "igs/structure/igs308.h"
#include "igs/structure/igs310.h"
#include "igs/structure/igs312.h"
#include "igs/structure/igs314.h"
#include "igs/structure/igs402_1.h"
#include "igs/structure/igs402_16.h"
#include "igs/structure/igs402_3.h"
#include "igs/structure/igs402_7.h"
#include "igs/structure/igs404.h"
#include "igs/structure/igs408.h"
#include "igs/structure/igs410_0.h"
#include "igs/structure/igs416.h"
#include "igs/structure/igsGroup.h"
#include "igs/surfaces/igs108.h"
#include "igs/surfaces/igs114.h"
#include "igs/surfaces/igs118.h"
#include "igs/surfaces/igs120.h"
#include "igs/surfaces/igs122.h"
#include "igs/surfaces/igs128.h"
#include "igs/surfaces/igs140.h"
#include "igs/surfaces/igs141.h"
#include "igs/surfaces/igs142.h"
#include "igs/surfaces/igs143.h"
#include "igs/surfaces/igs144.h"
#include "igs/surfaces/igs190.h"
#include "igs/surfaces/igs192.h"
#include "igs/surfaces/igs194.h"
#include "igs/surfaces/igs196.h"
#include "igs/surfaces/igs198.h"

namespace {
struct Registration {
  int type;
  int min_form;
  int max_form;
  igsObject* (*make_prototype)();
  bool igsFileOptions::*option = nullptr;
};

template <class Entity>
igsObject* make() {
  return new Entity;
}

constexpr auto unbounded_lines = &igsFileOptions::unbounded_lines;

// Every concrete entity class of the library: type, first and last form, class. A type or form that stands in no row is
// read as igsUnknown; so is one whose row names an option that the file was not asked for.
constexpr Registration registrations[] = {
    {-1, -INT_MAX, INT_MAX, make<igsUnknown>},        //
    {0, -INT_MAX, INT_MAX, make<igsNull>},            //
    {100, 0, 0, make<igs100>},                        //
    {102, 0, 0, make<igs102>},                        //
    {104, 0, 3, make<igs104>},                        //
    {106, 1, 3, make<igsPointset>},                   //
    {106, 11, 13, make<igsPolyline>},                 //
    {106, 20, 21, make<igsCentreLine>},               //
    {106, 31, 38, make<igsSection>},                  //
    {106, 40, 40, make<igsWitnessLine>},              //
    {106, 63, 63, make<igsSimpleClosedPlanarCurve>},  //
    {108, -1, 1, make<igs108>},                       //
    {110, 0, 0, make<igs110>},                        //
    {110, 1, 2, make<igs110>, unbounded_lines},       //
    {112, 0, 0, make<igs112>},                        //
    {114, 0, 0, make<igs114>},                        //
    {116, 0, 0, make<igs116>},                        //
    {118, 0, 1, make<igs118>},                        //
    {120, 0, 0, make<igs120>},                        //
    {122, 0, 0, make<igs122>},                        //
    {123, 0, 0, make<igs123>},                        //
    {124, 0, 1, make<igs124>},                        //
    {126, 0, 5, make<igs126>},                        //
    {128, 0, 9, make<igs128>},                        //
    {130, 0, 0, make<igs130>},                        //
    {140, 0, 0, make<igs140>},                        //
    {141, 0, 0, make<igs141>},                        //
    {142, 0, 0, make<igs142>},                        //
    {143, 0, 0, make<igs143>},                        //
    {144, 0, 0, make<igs144>},                        //
    {186, 0, 0, make<igs186>},                        //
    {190, 0, 0, make<igs190_0>},                      //
    {190, 1, 1, make<igs190_1>},                      //
    {192, 0, 0, make<igs192_0>},                      //
    {192, 1, 1, make<igs192_1>},                      //
    {194, 0, 0, make<igs194_0>},                      //
    {194, 1, 1, make<igs194_1>},                      //
    {196, 0, 0, make<igs196_0>},                      //
    {196, 1, 1, make<igs196_1>},                      //
    {198, 0, 0, make<igs198_0>},                      //
    {198, 1, 1, make<igs198_1>},                      //
    {202, 0, 0, make<igs202>},                        //
    {204, 0, 0, make<igs204>},                        //
    {206, 0, 0, make<igs206>},                        //
    {208, 0, 0, make<igs208>},                        //
    {210, 0, 0, make<igs210>},                        //
    {212, 0, 105, make<igs212>},                      //
    {214, 1, 12, make<igs214>},                       //
    {216, 0, 2, make<igs216>},                        //
    {218, 0, 1, make<igs218>},                        //
    {220, 0, 0, make<igs220>},                        //
    {222, 0, 1, make<igs222>},                        //
    {228, 0, 1, make<igs228>},                        //
    {230, 0, 0, make<igs230>},                        //
    {304, 1, 1, make<igs304_1>},                      //
    {304, 2, 2, make<igs304_2>},                      //
    {308, 0, 0, make<igs308>},                        //
    {310, 0, 0, make<igs310>},                        //
    {312, 0, 1, make<igs312>},                        //
    {314, 0, 0, make<igs314>},                        //
    {402, 1, 1, make<igs402_1>},                      //
    {402, 14, 15, make<igsGroup>},                    //
    {402, 16, 16, make<igs402_16>},                   //
    {402, 3, 3, make<igs402_3>},                      //
    {402, 7, 7, make<igs402_7>},                      //
    {404, 0, 1, make<igs404>},                        //
    {408, 0, 0, make<igs408>},                        //
    {410, 0, 0, make<igs410_0>},                      //
    {416, 1, 1, make<igs416>},                        //
    {502, 1, 1, make<igs502>},                        //
    {504, 1, 1, make<igs504>},                        //
    {508, 1, 1, make<igs508>},                        //
    {510, 1, 1, make<igs510>},                        //
    {514, 1, 1, make<igs514>},                        //
};

/// The shops by type: those of the types that the standard numbers are found at once.
class ShopRegistry {
 public:
  using Shops = std::vector<igsFactoryShop>;

  Shops& operator[](int type) { return is_usual(type) ? m_usual[place(type)] : m_others[type]; }
  /// Null where there is none.
  const Shops* find(int type) const {
    if (is_usual(type)) return &m_usual[place(type)];
    const auto found = m_others.find(type);
    return found != m_others.end() ? &found->second : nullptr;
  }

 private:
  static constexpr int least = -1, num_usual = 600;
  static std::size_t place(int type) { return static_cast<std::size_t>(type - least); }
  static bool is_usual(int type) { return type >= least && type < least + num_usual; }

  std::array<Shops, num_usual> m_usual;
  std::unordered_map<int, Shops> m_others;
};

// Never destroyed: the prototypes live as long as the process.
ShopRegistry& registry() {
  static ShopRegistry& shops = *[] {
    const igsPrototypeScope prototypes_register_nowhere;
    std::vector<std::unique_ptr<igsObject>> prototypes;
    prototypes.reserve(std::size(registrations));
    auto made = std::make_unique<ShopRegistry>();
    for (const Registration& row : registrations) {
      prototypes.emplace_back(row.make_prototype());
      (*made)[row.type].emplace_back(row.min_form, row.max_form, prototypes.back().get(), row.option);
    }
    for (auto& prototype : prototypes) static_cast<void>(prototype.release());  // the registry's from now on
    return made.release();
  }();
  return shops;
}
}  // namespace

igsFactory::igsFactory(igsEntityType type, int min_form, int max_form, igsObject* prototype) {
  registry()[type].emplace_back(min_form, max_form, prototype);
  if (prototype->manager() != nullptr) prototype->file().release_prototype(prototype);
}

igsObject* igsFactory::make_one(igsEntityType type, int form, const igsFileOptions& options) {
  const ShopRegistry::Shops* const shops = std::as_const(registry()).find(type);
  if (shops == nullptr) return new igsUnknown;
  for (const igsFactoryShop& shop : *shops) {
    if (shop.sells(form, options)) return shop.object()->make_one();
  }
  return new igsUnknown;
}
