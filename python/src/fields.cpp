#include <climits>
#include <string>
#include <utility>
#include <vector>

#include "diff/fields.h"
#include "entity.h"
#include "text/text.h"

namespace {

/// Builds what Python shows of fields: a group whose fields have labels is a dict, any other a list.
class FieldBuilder : public igsFieldVisitor {
 public:
  explicit FieldBuilder(Host& host) : m_host(host) {}

  py::dict take() { return std::move(m_fields); }

  void integer(const char* label, int value) override {
    add(label, value == igs_unset_int ? py::object(py::none()) : py::int_(value));
  }
  void real(const char* label, double value) override {
    add(label, igs_is_undefined_real(value) ? py::object(py::none()) : py::float_(value));
  }
  void text(const char* label, const utString& value) override { add(label, py::str(to_utf8(value))); }
  void reference(const char* label, const igsObject* target) override { add(label, py::cast(m_host.entity(target))); }
  void begin_group(const char* label) override { m_groups.push_back({label != nullptr ? label : "", {}}); }
  void end_group() override {
    Group group = std::move(m_groups.back());
    m_groups.pop_back();
    add(group.label.empty() ? nullptr : group.label.c_str(), group.value ? group.value : py::list());
  }

 private:
  struct Group {
    std::string label;
    py::object value;  ///< null until its first field tells what it is
  };

  void add(const char* label, py::object value) {
    if (m_groups.empty()) {
      m_fields[label != nullptr ? py::object(py::str(label)) : py::int_(m_fields.size() + 1)] = std::move(value);
      return;
    }
    py::object& group = m_groups.back().value;
    if (!group) group = label != nullptr ? py::object(py::dict()) : py::list();
    if (label != nullptr && py::isinstance<py::dict>(group)) {
      group[label] = std::move(value);
    } else {
      py::reinterpret_borrow<py::list>(group).append(std::move(value));
    }
  }

  Host& m_host;
  py::dict m_fields;
  std::vector<Group> m_groups;
};

}  // namespace

py::dict fields_of(const Entity& entity) {
  FieldBuilder builder(entity.host());
  visit_parameters(entity.object(), builder);
  return builder.take();
}

py::dict attributes_of(const Entity& entity) {
  FieldBuilder builder(entity.host());
  visit_attributes(entity.object(), builder);
  return builder.take();
}
