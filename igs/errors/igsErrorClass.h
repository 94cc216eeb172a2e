#pragma once

#include <concepts>
#include <cstddef>
#include <tuple>
#include <utility>

#include "igs/errors/igsError.h"

/// One error class: `class igsX : public igsErrorClass<igsX, "igsX", igsObjectError, int, double>` is a whole class
/// that is constructed from an int and a double, keeps them and shows them to visitors; only `fix` is left to write,
/// where the condition can be repaired. The constructor of a structure error takes the DE number before the values.
template <class Self, igsName Name, class Kind, class... Values>
class IGS_API_TEMPLATE igsErrorClass : public igsTyped<Self, Name, Kind> {
 public:
  explicit igsErrorClass(Values... values) requires(!std::derived_from<Kind, igsStructureError>)
      : m_values(std::move(values)...) {}
  explicit igsErrorClass(int de, Values... values) requires(std::derived_from<Kind, igsStructureError>)
      : igsTyped<Self, Name, Kind>(de), m_values(std::move(values)...) {}

  void visit_values([[maybe_unused]] igsErrorValueVisitor& visitor) const override {
    std::apply([&]([[maybe_unused]] const Values&... values) { (visitor.value(values), ...); }, m_values);
  }

 protected:
  /// Value `I` of the constructor, 0-based, a structure error's DE number not counted.
  template <std::size_t I>
  const auto& value() const {
    return std::get<I>(m_values);
  }

 private:
  [[no_unique_address]] std::tuple<Values...> m_values;
};
