#pragma once

#include <cstddef>
#include <functional>
#include <type_traits>
#include <utility>

#include "igs/errors/igsErrorClass.h"
#include "igs/objects/igsCast.h"

// Kinds of errors that say how they are repaired, to be named as the kind of an igsNamedError or igsErrorClass.

/// The kind `Kind` of errors whose `fix` hands the entity, a `T`, to `Repair`: a member function of T, or a function of
/// a T&, that takes none, some or all of the error's values, from the first on. `fix` answers what `Repair` returns, 1
/// when that is nothing; 0 when there is no such entity.
template <class T, auto Repair, class Kind = igsObjectError>
class igsRepairedBy;

/// An error of that kind that carries values.
template <class T, auto Repair, class Kind, class... Values>
class IGS_API_TEMPLATE igsErrorValues<igsRepairedBy<T, Repair, Kind>, Values...>
    : public igsErrorValues<Kind, Values...> {
 public:
  using igsErrorValues<Kind, Values...>::igsErrorValues;

  int fix() override {
    return igs_repair<T>(this->object_at_key(),
                         [this](T& entity) { return repair(entity, std::index_sequence_for<Values...>()); });
  }

 private:
  template <std::size_t... I>
  auto repair(T& entity, std::index_sequence<I...>) const {
    if constexpr (std::is_invocable_v<decltype(Repair), T&, decltype(this->template value<I>())...>) {
      return std::invoke(Repair, entity, this->template value<I>()...);
    } else {
      static_assert(sizeof...(I) > 0, "Repair can be called with none of the error's first values");
      return repair(entity, std::make_index_sequence<sizeof...(I) - 1>());
    }
  }
};

/// What igsStoredDefault and igsStoredElementDefault do.
template <class T, auto Set, int Default>
void igs_store_default(T& entity) {
  std::invoke(Set, entity, Default);
}
template <class T, auto At, auto Set, int Default>
int igs_store_element_default(T& entity, int i) {
  auto* const element = std::invoke(At, entity, i);
  if (element == nullptr) return 0;
  std::invoke(Set, *element, Default);
  return 1;
}

/// Kind of the errors that say that a field of a `T` has a value without a meaning: `fix` stores the value `Default`
/// with the setter `Set`.
template <class T, auto Set, int Default>
using igsStoredDefault = igsRepairedBy<T, &igs_store_default<T, Set, Default>>;

/// The same for a field of an element of a list: the error's first value is the element's position, at which `At` gives
/// a pointer to it; 0 where that is null.
template <class T, auto At, auto Set, int Default>
using igsStoredElementDefault = igsRepairedBy<T, &igs_store_element_default<T, At, Set, Default>>;

/// Kind of the errors that are accepted as they are: `fix` changes nothing and answers 1.
template <class Kind>
class IGS_API_TEMPLATE igsAccepted : public Kind {
 public:
  int fix() override { return 1; }

 protected:
  using Kind::Kind;
  igsAccepted() = default;
};
