#pragma once

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <string>
#include <type_traits>
#include <vector>

#include "igs/fields/igsBoundedList.h"
#include "igs/fields/igsEntity.h"
#include "igs/input/igsInStream.h"
#include "igs/objects/igsFieldVisitor.h"
#include "igs/output/igsOutStream.h"
#include "igs/support/export.h"
#include "igs/support/giPoint.h"
#include "igs/support/giVector.h"
#include "igs/support/undefined.h"
#include "igs/support/utOstream.h"

// What is done with each field of an entity. Private to the library: included by the source files of entity classes.
//
// In a class's `fields(entity, visit)`
//   visit("Label", entity.m_value)           is a number, string, pointer, point or vector, or a record: a class with a
//                                            static `fields(record, visit)` of its own; or an igsNumberOrPointer;
//   visit("Label", entity.m_value, 1.0)      is the same for a number, or an igsNumberOrPointer, that is not 0
//                                            where the record does not give it;
//   const int n = visit.count("Label", size) is a field that holds the size of a list: the size itself, and what the
//                                            file says while it is read; as further arguments the least size, below
//                                            which nothing more is read, and the igsBadCount of its error;
//   visit.index("Label", entity.m_index)     is a position in a list, counted from 1 in the file and from 0 in memory;
//   visit.list("Label", n, entity.m_list, igsBadCount<igsNNNBadNumThings>())
//                                            is a std::vector of any of these, fields or records. The error may also be
//                                            one that is constructed without the count, or, for a list in records of a
//                                            list, from the record's position (0-based) and the count;
//   visit.parametric([&] { ... })            are reals that are written with the precision of parameter-space values:
//                                            those that the function visits.

template <class Value>
concept igsRecord = requires(Value& value, igsPointerVisitor& visit) {
  Value::fields(value, visit);
};

/// A number, or a pointer that stands in the file as the negative of its DE number (igsDEAttribute): built from the
/// field as read, and gives the field to be written and the pointer.
template <class Value>
concept igsNumberOrPointer = std::is_constructible_v<Value, int> && requires(const Value& value, Value& changed) {
  value.field();
  changed.definition();
};

/// The coefficients of a polynomial, a group of reals without labels.
template <class Value>
concept igsCoefficients = requires(Value& value) {
  value.coefficients();
};

/// Base of the visitors to which the precision of reals does not matter.
class igsExactReals {
 public:
  template <class Fields>
  void parametric(Fields fields) {
    fields();
  }
};

/// Reads fields. A field that the record does not supply reads as 0, as a null pointer or as an empty string. Of a
/// list, the elements behind the record's end are unset: points and vectors undefined, reals -DBL_MAX (which an empty
/// field in a list of reals, and an empty coefficient, is, too).
class igsFieldReader : public igsExactReals {
 public:
  igsFieldReader(igsInStream& in, const igsObject& entity) : m_in(in), m_entity(entity) {}

  void operator()(const char*, int& value) { read_integer(value); }
  void operator()(const char*, double& value) { read_double(value); }
  void operator()(const char*, utString& value) {
    m_in.read_holerith(value);
    note_value();
  }
  void operator()(const char*, igsObjectPtr& value) {
    int de = 0;
    read_integer(de);
    value = igsObjectPtr(de);
  }
  template <class Number>
  void operator()(const char* label, Number& value, const Number& otherwise) {
    (*this)(label, value);
    if (m_in.take_value_present() == 0) value = otherwise;
  }
  template <class Value>
  void operator()(const char*, Value& value) {
    if constexpr (igsRecord<Value>) {
      Value::fields(value, *this);
    } else if constexpr (igsNumberOrPointer<Value>) {
      int field = 0;
      read_integer(field);
      value = Value(field);
    } else if constexpr (igsCoefficients<Value>) {
      for (double& coefficient : value.coefficients()) read_supplied(coefficient);
    } else if constexpr (std::is_constructible_v<Value, double, double, double>) {
      const std::array<double, 3> xyz = read_doubles<3>();
      value = Value(xyz[0], xyz[1], xyz[2]);
    } else {
      const std::array<double, 2> xy = read_doubles<2>();
      value = Value(xy[0], xy[1]);
    }
  }

  void index(const char*, int& value) {
    read_integer(value);
    if (value > INT_MIN) --value;
  }
  int count(const char*, std::size_t) {
    int value = 0;
    read_integer(value);
    return value;
  }
  template <class Error>
  int count(const char* label, std::size_t size, int least, igsBadCount<Error>) {
    const int value = count(label, size);
    if (m_usable && value < least) refuse<Error>(value);
    return value;
  }
  template <class Element, class Memory, class Error>
  void list(const char*, std::int64_t count, std::vector<Element, Memory>& elements, igsBadCount<Error> bad_count) {
    if (!m_usable) return;
    const int position = m_position;
    const bool given_before = m_given;
    bool any_given = false;
    int next = 0;
    const auto read = [&](Element& element) {
      if (!m_usable || m_in.frozen()) return igsSupply::ended;
      if constexpr (igsRecord<Element>) m_position = next++;
      m_given = false;
      if constexpr (std::is_same_v<Element, double>) {
        read_supplied(element);
      } else {
        (*this)(nullptr, element);
      }
      any_given = any_given || m_given;
      return m_given ? igsSupply::given : igsSupply::empty;
    };
    Element unset{};
    if constexpr (std::is_same_v<Element, double>) unset = igs_undefined_real;
    const int believed = igs_read_bounded(m_in, count, elements, read, unset);
    m_position = position;
    m_given = given_before || any_given;
    if (!m_usable || believed != 0) return;
    refuse<Error>(bad_count.in_record.value_or(static_cast<int>(std::clamp<std::int64_t>(count, INT_MIN, INT_MAX))));
  }

  /// False once a list had a count that cannot be used: what follows in the record has no meaning then.
  bool usable() const { return m_usable; }
  /// True once a field held a value.
  bool given() const { return m_given; }

 private:
  void note_value() { m_given = m_given || m_in.value_present() != 0; }
  void read_integer(int& value) {
    m_in.read_integer(value);
    note_value();
  }
  void read_double(double& value) {
    m_in.read_double(value);
    note_value();
  }
  void read_supplied(double& value) {
    read_double(value);
    if (m_in.take_value_present() == 0) value = igs_undefined_real;
  }
  template <class Error>
  void refuse(int count) {
    m_usable = false;
    if constexpr (std::is_constructible_v<Error, int, int>) {
      m_entity.tag<Error>(m_position, count);
    } else if constexpr (std::is_constructible_v<Error, int>) {
      m_entity.tag<Error>(count);
    } else {
      m_entity.tag<Error>();
    }
  }
  template <std::size_t N>
  std::array<double, N> read_doubles() {
    std::array<double, N> values{};
    for (double& value : values) read_double(value);
    return values;
  }

  igsInStream& m_in;
  const igsObject& m_entity;
  bool m_usable = true;
  bool m_given = false;
  int m_position = 0;  ///< of the record that is being read in its list
};

/// Reals are written with the precision of parameter-space values as long as this object lives.
class IGS_API igsParametricFormat {
 public:
  explicit igsParametricFormat(igsOutStream& out);
  ~igsParametricFormat() { m_out.pop_double_format(); }
  igsParametricFormat(const igsParametricFormat&) = delete;
  igsParametricFormat& operator=(const igsParametricFormat&) = delete;

 private:
  igsOutStream& m_out;
};

/// Writes fields. A null pointer is written as 0.
class igsFieldWriter {
 public:
  explicit igsFieldWriter(igsOutStream& out) : m_out(out) {}

  void operator()(const char*, int value) { m_out.write_integer(value); }
  void operator()(const char*, double value) { m_out.write_double(value); }
  void operator()(const char*, const utString& value) { m_out.write_holerith(value); }
  void operator()(const char*, const igsObjectPtr& value) { m_out.write_integer(value.de_number()); }
  template <class Number>
  void operator()(const char* label, const Number& value, const Number&) {
    (*this)(label, value);
  }
  template <class Value>
  void operator()(const char*, const Value& value) {
    if constexpr (igsRecord<Value>) {
      Value::fields(value, *this);
    } else if constexpr (igsNumberOrPointer<Value>) {
      m_out.write_integer(value.field());
    } else if constexpr (igsCoefficients<Value>) {
      for (const double coefficient : value.coefficients()) m_out.write_double(coefficient);
    } else {
      m_out.write_double(value.x());
      m_out.write_double(value.y());
      if constexpr (requires { value.z(); }) m_out.write_double(value.z());
    }
  }

  template <class Value>
  void optional(const char* label, const Value& value) {
    (*this)(label, value);
  }
  /// Whether fields are written as they were read (igsOutStream::set_exact).
  bool exact() const { return m_out.exact(); }

  void index(const char*, int value) { m_out.write_integer(value < INT_MAX ? value + 1 : value); }
  template <class... Limits>
  int count(const char*, std::size_t size, Limits...) {
    m_out.write_integer(static_cast<int>(size));
    return static_cast<int>(size);
  }
  template <class Element, class Memory, class Error>
  void list(const char*, std::int64_t, const std::vector<Element, Memory>& elements, igsBadCount<Error>) {
    for (const Element& element : elements) (*this)(nullptr, element);
  }
  template <class Fields>
  void parametric(Fields fields) {
    const igsParametricFormat format(m_out);
    fields();
  }

 private:
  igsOutStream& m_out;
};

/// Prints fields, one "label = value" line each; a pointer with the entity it refers to. Records and lists stand in
/// braces, the elements of a list being labelled "(0)", "(1)" and so on.
class IGS_API igsFieldPrinter : public igsExactReals {
 public:
  explicit igsFieldPrinter(utOstream& os) : m_os(os) {}

  void operator()(const char* label, const igsObjectPtr& value);
  template <class Number>
  void operator()(const char* label, const Number& value, const Number&) {
    (*this)(label, value);
  }
  template <class Value>
  void operator()(const char* label, const Value& value) {
    if constexpr (igsRecord<Value>) {
      in_braces(label, [&value](igsFieldPrinter& inner) { Value::fields(value, inner); });
    } else if constexpr (igsNumberOrPointer<Value>) {
      if (value.definition().object() != nullptr) {
        (*this)(label, value.definition());
      } else {
        (*this)(label, value.field());
      }
    } else {
      m_os << label << " = " << value << utEndl;
    }
  }

  void index(const char* label, int value) { (*this)(label, value); }
  template <class... Limits>
  int count(const char* label, std::size_t size, Limits...) {
    (*this)(label, static_cast<int>(size));
    return static_cast<int>(size);
  }
  template <class Element, class Memory, class Error>
  void list(const char* label, std::int64_t, const std::vector<Element, Memory>& elements, igsBadCount<Error>) {
    in_braces(label, [&elements](igsFieldPrinter& inner) {
      for (std::size_t i = 0; i < elements.size(); ++i) {
        inner(('(' + std::to_string(i) + ')').c_str(), elements[i]);
      }
    });
  }

 private:
  template <class PrintInner>
  void in_braces(const char* label, PrintInner print_inner) {
    m_os << label << " = {" << utEndl;
    utOstream inner_stream(m_os, 1);
    igsFieldPrinter inner(inner_stream);
    print_inner(inner);
    m_os << '}' << utEndl;
  }

  utOstream& m_os;
};

/// Shows the pointers among the fields to a visitor.
class igsFieldPointers : public igsExactReals {
 public:
  explicit igsFieldPointers(igsPointerVisitor& visitor) : m_visitor(visitor) {}

  void operator()(const char*, igsObjectPtr& value) { m_visitor.visit(value); }
  template <class Number>
  void operator()(const char* label, Number& value, const Number&) {
    (*this)(label, value);
  }
  template <class Value>
  void operator()(const char*, Value& value) {
    if constexpr (igsRecord<Value>) {
      Value::fields(value, *this);
    } else if constexpr (igsNumberOrPointer<Value>) {
      m_visitor.visit(value.definition());
    }
  }

  void index(const char*, int) {}
  template <class... Limits>
  int count(const char*, std::size_t size, Limits...) {
    return static_cast<int>(size);
  }
  template <class Element, class Memory, class Error>
  void list(const char*, std::int64_t, std::vector<Element, Memory>& elements, igsBadCount<Error>) {
    if constexpr (igsRecord<Element> || igsNumberOrPointer<Element> || std::is_same_v<Element, igsObjectPtr>) {
      for (Element& element : elements) (*this)(nullptr, element);
    }
  }

 private:
  igsPointerVisitor& m_visitor;
};

/// Shows the fields to a visitor, as they are written.
class igsFieldShower : public igsExactReals {
 public:
  explicit igsFieldShower(igsFieldVisitor& visitor) : m_visitor(visitor) {}

  void operator()(const char* label, int value) { m_visitor.integer(label, value); }
  void operator()(const char* label, double value) { m_visitor.real(label, value); }
  void operator()(const char* label, const utString& value) { m_visitor.text(label, value); }
  void operator()(const char* label, const igsObjectPtr& value) { m_visitor.reference(label, value.object()); }
  template <class Number>
  void operator()(const char* label, const Number& value, const Number&) {
    optional(label, value);
  }
  template <class Value>
  void operator()(const char* label, const Value& value) {
    if constexpr (igsNumberOrPointer<Value>) {
      const igsObject* const target = value.definition().object();
      target != nullptr ? m_visitor.reference(label, target) : m_visitor.integer(label, value.field());
    } else {
      m_visitor.begin_group(label);
      show_parts(value);
      m_visitor.end_group();
    }
  }

  template <class Value>
  void optional(const char* label, const Value& value) {
    m_visitor.optional();
    (*this)(label, value);
  }
  void index(const char* label, int value) { (*this)(label, value < INT_MAX ? value + 1 : value); }
  template <class... Limits>
  int count(const char* label, std::size_t size, Limits...) {
    (*this)(label, static_cast<int>(size));
    return static_cast<int>(size);
  }
  template <class Element, class Memory, class Error>
  void list(const char* label, std::int64_t, const std::vector<Element, Memory>& elements, igsBadCount<Error>) {
    m_visitor.begin_group(label);
    for (const Element& element : elements) (*this)(nullptr, element);
    m_visitor.end_group();
  }

 private:
  template <class Value>
  void show_parts(const Value& value) {
    if constexpr (igsRecord<Value>) {
      Value::fields(value, *this);
    } else if constexpr (igsCoefficients<Value>) {
      for (const double coefficient : value.coefficients()) (*this)(nullptr, coefficient);
    } else {
      (*this)("x", value.x());
      (*this)("y", value.y());
      if constexpr (requires { value.z(); }) (*this)("z", value.z());
    }
  }

  igsFieldVisitor& m_visitor;
};

template <class Self, igsName Name, class Parent>
igsObject* igsWrittenEntity<Self, Name, Parent>::make_one() {
  return new Self;
}

template <class Self, igsName Name, class Parent>
int igsEntity<Self, Name, Parent>::read_pd_data(igsInStream& in) {
  igsFieldReader reader(in, *this);
  Self::fields(static_cast<Self&>(*this), reader);
  return reader.usable() ? 1 : 0;
}

template <class Self, igsName Name, class Parent>
void igsWrittenEntity<Self, Name, Parent>::write_pd_data(igsOutStream& out) {
  igsFieldWriter writer(out);
  Self::fields(static_cast<const Self&>(*this), writer);
}

template <class Self, igsName Name, class Parent>
void igsEntity<Self, Name, Parent>::print_pd_data(utOstream& os) const {
  igsFieldPrinter printer(os);
  Self::fields(static_cast<const Self&>(*this), printer);
}

template <class Self, igsName Name, class Parent>
void igsEntity<Self, Name, Parent>::visit_pointers(igsPointerVisitor& visitor) {
  igsFieldPointers pointers(visitor);
  Self::fields(static_cast<Self&>(*this), pointers);
}

template <class Self, igsName Name, class Parent>
void igsWrittenEntity<Self, Name, Parent>::visit_fields(igsFieldVisitor& visitor) const {
  igsFieldShower shower(visitor);
  Self::fields(static_cast<const Self&>(*this), shower);
}
