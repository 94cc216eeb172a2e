// Adds an entity class of the host's own: the Node of a finite element model (type 134).
#include <iostream>
#include <sstream>

#include "igs/errors/igsErrorClass.h"
#include "igs/igs.h"
#include "igs/input/igsInStream.h"
#include "igs/objects/igsFieldVisitor.h"
#include "igs/output/igsOutStream.h"

// [error]
/// The node has no place.
class NodeWithoutPlace : public igsErrorClass<NodeWithoutPlace, "NodeWithoutPlace", igsObjectError> {
 public:
  using igsErrorClass::igsErrorClass;
};
// [error]

// [class]
/// Node (IGES 5.3, type 134): a point, and the coordinate system of its displacements.
class Node : public igsTyped<Node, "Node", igsObject> {
 public:
  Node() { set_directory_entry_type(igsEntity134, 0); }

  const giPoint3& place() const { return m_place; }
  void set_place(const giPoint3& place) { m_place = place; }

  igsObject* make_one() override { return new Node; }
  int read_pd_data(igsInStream& in) override {
    double x = 0, y = 0, z = 0;
    in.read_double(x);
    in.read_double(y);
    in.read_double(z);
    m_place = giPoint3(x, y, z);
    int de = 0;
    in.read_integer(de);
    m_system = igsObjectPtr(de);  // null for 0; binds to an entity that comes later, too
    return 1;
  }
  void write_pd_data(igsOutStream& out) override {
    out.write_double(m_place.x());
    out.write_double(m_place.y());
    out.write_double(m_place.z());
    out.write_integer(m_system.de_number());
  }
  void print_pd_data(utOstream& os) const override { os << "Place = " << m_place << utEndl; }
  void check_pd() const override {
    if (m_place.is_undefined()) tag<NodeWithoutPlace>();
  }
  void visit_pointers(igsPointerVisitor& visitor) override { visitor.visit(m_system); }
  void visit_fields(igsFieldVisitor& visitor) const override {
    visitor.real("X", m_place.x());
    visitor.real("Y", m_place.y());
    visitor.real("Z", m_place.z());
    visitor.reference("System", m_system.object());
  }

 private:
  giPoint3 m_place;
  igsObjectPtr m_system;
};
// [class]

int main() {
  utOstream messages(std::cerr), out(std::cout);
  std::stringstream text;
  {
    igsFile model;
    auto* node = new Node;
    node->set_place(giPoint3(1, 2, 3));
    if (model.write(text, messages) == 0) return 1;
  }

  // [register]
  const igsFactory shop(igsEntity134, 0, 0, new Node);  // once, before files are read; the prototype lives on
  // [register]

  igsFile file;
  if (file.read(text, messages) == 0) return 1;
  file.entity(1)->print(out);

  auto* node = static_cast<Node*>(file.entity(1));
  node->set_place(giPoint3());
  file.check();
  std::cout << file.error_log().object_log().num_errors(1) << " error\n";
}
