#pragma once

#include <concepts>
#include <cstddef>
#include <tuple>
#include <utility>

#include "igs/errors/igsError.h"

/// An error of the kind `Kind` that carries values, in the order of its constructor. The constructor of a structure
/// error takes the DE number before the values.
template <class Kind, class... Values>
class IGS_API_TEMPLATE igsErrorValues : public Kind {
 public:
  using Kind::Kind;
  explicit igsErrorValues(Values... values) requires(!std::derived_from<Kind, igsStructureError>)
      : m_values(std::move(values)...) {}
  explicit igsErrorValues(int de, Values... values) requires(std::derived_from<Kind, igsStructureError>)
      : Kind(de), m_values(std::move(values)...) {}

  /// Value `I`, 0-based, a structure error's DE number not counted: what visit_values() shows, with its type.
  template <std::size_t I>
  const auto& value() const {
    return std::get<I>(m_values);
  }
  void visit_values(igsErrorValueVisitor& visitor) const override {
    if constexpr (sizeof...(Values) == 0) Kind::visit_values(visitor);
    std::apply([&](const Values&... values) { (visitor.value(values), ...); }, m_values);
  }

 private:
  [[no_unique_address]] std::tuple<Values...> m_values;
};

/// One error class: `class igsX : public igsErrorClass<igsX, "igsX", igsObjectError, int, double>` is a whole class
/// that is constructed from an int and a double, keeps them and shows them to visitors; only `fix` is left to write,
/// where the condition can be repaired.
template <class Self, igsName Name, class Kind, class... Values>
class IGS_API_TEMPLATE igsErrorClass : public igsTyped<Self, Name, igsErrorValues<Kind, Values...>> {
 public:
  using igsTyped<Self, Name, igsErrorValues<Kind, Values...>>::igsTyped;
  igsErrorClass() = default;
};

/// The error class `Name` in one line: all that an igsErrorClass is, where nothing but its kind tells how it is
/// repaired. `using igsX = igsNamedError<"igsX", igsObjectError, int>`.
template <igsName Name, class Kind = igsObjectError, class... Values>
using igsNamedError = igsErrorClass<void, Name, Kind, Values...>;
