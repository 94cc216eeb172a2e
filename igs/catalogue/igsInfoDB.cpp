#include "igs/catalogue/igsInfoDB.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <memory>
#include <span>
#include <utility>

#include "igs/support/undefined.h"

namespace {

/// A form, or a run of forms that share a name.
struct FormRow {
  constexpr FormRow(int form, const char* form_name) : FormRow(form, form, form_name) {}
  constexpr FormRow(int first, int last, const char* form_name) : min_form(first), max_form(last), name(form_name) {}

  int min_form;
  int max_form;
  const char* name;
};

struct EntityRow {
  int type;
  const char* name;
  int default_form;  ///< igs_unset_int: no default form
  std::span<const FormRow> forms;
};

struct FlagRow {
  int flag;
  const char* name;
};

constexpr std::span<const FormRow> no_forms;  // form 0 alone

// Forms and names after IGES 5.3, chapter 4. Names are compared and printed by hosts: odd spellings stay as they are.
constexpr FormRow every_form[] = {
    {-2147483647, 2147483647, "Unknown"},
};

constexpr FormRow forms_104[] = {
    {0, "Computationally Derived"},
    {1, "Ellipse"},
    {2, "Hyperbola"},
    {3, "Parabola"},
};

constexpr FormRow forms_106[] = {
    {1, "Data Points (2D)"},
    {2, "Data Points (3D)"},
    {3, "Data Points (Sextuples)"},
    {11, "Piecewise Linear Curve (2D)"},
    {12, "Piecewise Linear Curve (3D)"},
    {13, "Piecewise Linear Curve (Sextuples)"},
    {20, "Centerline (through points)"},
    {21, "Centerline (through circle centers)"},
    {31, "Section (Iron, General Use)"},
    {32, "Section (Steel)"},
    {33, "Section (Bronze, brass, copper, etc.)"},
    {34, "Section (Rubber, plastic, etc.)"},
    {35, "Section (Titanium, etc.)"},
    {36, "Section (Marble, slate, glass, etc.)"},
    {37, "Section (Zinc, lead, etc.)"},
    {38, "Section (Magnesium, aluminum, etc.)"},
    {40, "Witness Line"},
    {63, "Closed Planar Curve"},
};

constexpr FormRow forms_108[] = {
    {1, "Bounded"},
    {0, "Unbounded"},
    {-1, "Hole"},
};

constexpr FormRow forms_118[] = {
    {0, "Equal Relative Arc Length"},
    {1, "Equal Relative Parametric Values"},
};

constexpr FormRow forms_124[] = {
    {0, "Right-handed (default)"}, {1, "Left-handed"},      {10, "Cartesian (FEM)"},
    {11, "Cylindrical (FEM)"},     {12, "Spherical (FEM)"},
};

constexpr FormRow forms_125[] = {
    {0, "Defined by Referenced Entity"}, {1, "Circular"}, {2, "Rectangular"}, {3, "Donut"}, {4, "Canoe"},
};

constexpr FormRow forms_126[] = {
    {0, "Computationally Derived"}, {1, "Line"},          {2, "Circular Arc"},
    {3, "Elliptical Arc"},          {4, "Parabolic Arc"}, {5, "Hyperbolic Arc"},
};

constexpr FormRow forms_128[] = {
    {0, "Computationally Derived"},
    {1, "Plane"},
    {2, "Right Circular Cylinder"},
    {3, "Cone"},
    {4, "Sphere"},
    {5, "Torus"},
    {6, "Surface of Revolution"},
    {7, "Tabulated Cylinder"},
    {8, "Ruled Surface"},
    {9, "General Quadric Surface"},
};

constexpr FormRow result_forms[] = {
    {0, "Unknown/Misc"},
    {1, "Temperature"},
    {2, "Pressure"},
    {3, "Total displacement"},
    {4, "Total displacement and rotation"},
    {5, "Velocity"},
    {6, "Velocity Gradient"},
    {7, "Acceleration"},
    {8, "Flux"},
    {9, "Elemental Force"},
    {10, "Strain Energy"},
    {11, "Strain Energy Density"},
    {12, "Reaction Force"},
    {13, "Kinetic Energy"},
    {14, "Kinetic Energy Density"},
    {15, "Hydrostatic Pressure"},
    {16, "Coefficient of Pressure"},
    {17, "Symmetric 2D Elastic Stress Tensor"},
    {18, "Symmetric 2D Total Stress Tensor"},
    {19, "Symmetric 2D Elastic Strain Tensor"},
    {20, "Symmetric 2D Plastic Strain Tensor"},
    {21, "Symmetric 2D Total Strain Tensor"},
    {22, "Symmetric 2D Thermal Strain"},
    {23, "Symmetric 3D Elastic Stress Tensor"},
    {24, "Symmetric 3D Total Stress Tensor"},
    {25, "Symmetric 3D Elastic Strain Tensor"},
    {26, "Symmetric 3D Plastic Strain Tensor"},
    {27, "Symmetric 3D Total Strain Tensor"},
    {28, "Symmetric 3D Thermal Strain"},
    {29, "General Elastic Stress Tensor"},
    {30, "General Total Stress Tensor"},
    {31, "General Elastic Strain Tensor"},
    {32, "General Plastic Strain Tensor"},
    {33, "General Total Strain Tensor"},
    {34, "General Thermal Strain"},
};

constexpr FormRow forms_162[] = {
    {0, "Curve Closed on Axis"},
    {1, "Curve Closed on Itself"},
};

constexpr FormRow parameterization_forms[] = {
    {0, "Unparameterized Surface"},
    {1, "Parameterized Surface"},
};

constexpr FormRow forms_212[] = {
    {0, "Simple Note (default)"},
    {1, "Dual Stack"},
    {2, "Embedded Font Change"},
    {3, "Superscript"},
    {4, "Subscript"},
    {5, "Super-/Subscript"},
    {6, "Multiple Stack/Left Justify"},
    {7, "Multiple Stack/Center Justify"},
    {8, "Multiple Stack/Right Justify"},
    {100, "Simple Fraction"},
    {101, "Dual Stack Fraction"},
    {102, "Imbedded Font Change/Double Fraction"},
    {105, "Super-/Subscript Fraction"},
};

constexpr FormRow forms_214[] = {
    {1, "Wedge"},  {2, "Triangle"},       {3, "Filled Triangle"}, {4, "No Arrowhead"},
    {5, "Circle"}, {6, "Filled Circle"},  {7, "Rectangle"},       {8, "Filled Rectangle"},
    {9, "Slash"},  {10, "Integral Sign"}, {11, "Open Triangle"},  {12, "Dimension Origin"},
};

constexpr FormRow forms_216[] = {
    {0, "Undetermined (default)"},
    {1, "Diameter Dimension"},
    {2, "Radius Dimension"},
};

constexpr FormRow forms_218[] = {
    {0, "Witness or Leader"},
    {1, "Witness and Leader"},
};

constexpr FormRow forms_222[] = {
    {0, "Single Leader Format"},
    {1, "Multiple Leader Format"},
};

constexpr FormRow forms_228[] = {
    {0, "General Symbol (default)"},
    {1, "Datum Feature Symbol"},
    {2, "Datum Target Symbol"},
    {3, "Feature Control Frame"},
    {5001, 9999, "User Defined General Symbol Definition"},
};

constexpr FormRow forms_230[] = {
    {0, "Default"},
    {1, "Inverted Crosshatch"},
};

constexpr FormRow forms_302[] = {
    {5001, 9999, "User Defined Associativity Definition"},
};

constexpr FormRow forms_304[] = {
    {1, "Repeating Template Subfigure"},
    {2, "Repeating Visible-blank Pattern"},
};

constexpr FormRow forms_312[] = {
    {0, "Absolute"},
    {1, "Incremental"},
};

constexpr FormRow forms_322[] = {
    {0, "One-to-many"},
    {1, "One-to-one"},
    {2, "One-to-one With Text Pointer"},
};

constexpr FormRow forms_402[] = {
    {1, "Unordered Group With Back Pointers"},
    {2, "External Logical Reference File Index (obsolete!)"},
    {3, "Views Visible"},
    {4, "Views Visible, Color, Line Weight"},
    {5, "Entity Label Display"},
    {6, "View List (obsolete!)"},
    {7, "Unordered Group Without Back Pointers"},
    {8, "Signal String (obsolete!)"},
    {9, "Single Parent"},
    {10, "Text Node (obsolete!)"},
    {11, "Connect Node (obsolete!)"},
    {12, "External Reference File Index"},
    {13, "Dimensioned Geometry"},
    {14, "Ordered Group With Back Pointers"},
    {15, "Ordered Group Without Back Pointers"},
    {16, "Planar"},
    {18, "Flow"},
    {19, "Segmented Views Visible"},
    {20, "Piping Flow"},
    {21, "Dimensioned Geometry"},
    {5001, 9999, "User Defined Associativity Instance"},
};

constexpr FormRow forms_404[] = {
    {0, "Normal Drawing (default)"},
    {1, "Drawing with Rotated Views"},
};

constexpr FormRow forms_406[] = {
    {1, "Definition Levels"},
    {2, "Region Restriction"},
    {3, "Level Function"},
    {4, "Region Fill (obsolete!)"},
    {5, "Line Widening"},
    {6, "Drilled Hole"},
    {7, "Reference Designator"},
    {8, "Pin Humber"},
    {9, "Part Number"},
    {10, "Hierarchy"},
    {11, "Tabular Data"},
    {12, "External Reference File List"},
    {13, "Nominal Size"},
    {14, "Flow Line Specification"},
    {15, "Name"},
    {16, "Drawing Size"},
    {17, "Drawing Units"},
    {18, "Intercharacter Spacing"},
    {19, "Line Font"},
    {20, "Highlight"},
    {21, "Pick"},
    {22, "Uniform Rectangular Grid"},
    {23, "Associativity Group Type"},
    {24, "Level to PWB Layer Map"},
    {25, "PWB Artwork Stackup"},
    {26, "PWB Drilled Hole"},
    {27, "Generic Data"},
    {28, "Dimension Units"},
    {29, "Dimension Tolerance"},
    {30, "Dimension Display Data"},
    {31, "Basic Dimension"},
    {5001, 9999, "User Defined Property Instance"},
};

constexpr FormRow forms_410[] = {
    {0, "Orthogonal (default)"},
    {1, "Perspective"},
};

constexpr FormRow forms_416[] = {
    {0, "Single Entity"},          {1, "Entire File"}, {2, "Logical Reference"}, {3, "Native Part/Figure"},
    {4, "Native Part in Library"},
};

constexpr FormRow forms_422[] = {
    {0, "Single Row"},
    {1, "Multiple Row"},
};

constexpr FormRow forms_502[] = {
    {1, "Vertex List"},
};

constexpr FormRow forms_504[] = {
    {1, "Edge List"},
};

constexpr FormRow forms_508[] = {
    {1, "MSBO Loop"},
};

constexpr FormRow forms_510[] = {
    {1, "MSBO Face"},
};

constexpr FormRow forms_514[] = {
    {1, "MSBO Shell"},
    {2, "Open Shell"},
};

constexpr EntityRow entity_rows[] = {
    {-1, "Unknown Entity", 0, every_form},
    {0, "Null", 0, every_form},
    {100, "Circular Arc", 0, no_forms},
    {102, "Composite Curve", 0, no_forms},
    {104, "Conic Arc", 0, forms_104},
    {106, "Copious Data", igs_unset_int, forms_106},
    {108, "Plane", 0, forms_108},
    {110, "Line", 0, no_forms},
    {112, "Parametric Spline Curve", 0, no_forms},
    {114, "Parametric Spline Surface", 0, no_forms},
    {116, "Point", 0, no_forms},
    {118, "Ruled Surface", 0, forms_118},
    {120, "Surface of Revolution", 0, no_forms},
    {122, "Tabulated Cylinder", 0, no_forms},
    {123, "Direction", 0, no_forms},
    {124, "Transformation Matrix", 0, forms_124},
    {125, "Flash", 0, forms_125},
    {126, "Rational B-Spline Curve", 0, forms_126},
    {128, "Rational B-Spline Surface", 0, forms_128},
    {130, "Offset Curve", 0, no_forms},
    {132, "Connect Point", 0, no_forms},
    {134, "Node", 0, no_forms},
    {136, "Finite Element", 0, no_forms},
    {138, "Nodal Displacement & Rotation", 0, no_forms},
    {140, "Offset Surface", 0, no_forms},
    {141, "Boundary", 0, no_forms},
    {142, "Curve on a Parametric Surface", 0, no_forms},
    {143, "Bounded Surface", 0, no_forms},
    {144, "Trimmed (Parametric) Surface", 0, no_forms},
    {146, "Nodal Results", 0, result_forms},
    {148, "Element Results", 0, result_forms},
    {150, "Block", 0, no_forms},
    {152, "Right Angular Wedge", 0, no_forms},
    {154, "Right Circular Cylinder", 0, no_forms},
    {156, "Right Circular Cone Frustum", 0, no_forms},
    {158, "Sphere", 0, no_forms},
    {160, "Torus", 0, no_forms},
    {162, "Solid of Revolution", igs_unset_int, forms_162},
    {164, "Solid of Linear Extrusion", 0, no_forms},
    {168, "Ellipsoid", 0, no_forms},
    {180, "Boolean Tree", 0, no_forms},
    {182, "Selected Component", 0, no_forms},
    {184, "Solid Assembly", 0, no_forms},
    {186, "Manifold Solid B-Rep Object", 0, no_forms},
    {190, "Plane Surface", igs_unset_int, parameterization_forms},
    {192, "Right Circular Cylindrical Surface", igs_unset_int, parameterization_forms},
    {194, "Right Circular Conical Surface", igs_unset_int, parameterization_forms},
    {196, "Spherical Surface", igs_unset_int, parameterization_forms},
    {198, "Toroidal Surface", igs_unset_int, parameterization_forms},
    {202, "Angular Dimension", 0, no_forms},
    {204, "Curve Dimension", 0, no_forms},
    {206, "Diameter Dimension", 0, no_forms},
    {208, "Flag Note", 0, no_forms},
    {210, "General Label", 0, no_forms},
    {212, "General Note", 0, forms_212},
    {213, "New General Note", 0, no_forms},
    {214, "Leader (Arrow)", 4, forms_214},
    {216, "Linear Dimension", 0, forms_216},
    {218, "Ordinate Dimension", 0, forms_218},
    {220, "Point Dimension", 0, no_forms},
    {222, "Radius Dimension", 0, forms_222},
    {228, "General Symbol", 0, forms_228},
    {230, "Sectioned Area", 0, forms_230},
    {302, "Associativity Definition", igs_unset_int, forms_302},
    {304, "Line Font Definition", igs_unset_int, forms_304},
    {306, "MACRO Definition", 0, no_forms},
    {308, "Subfigure Definition", 0, no_forms},
    {310, "Text Font Definition", 0, no_forms},
    {312, "Text Display Template", 0, forms_312},
    {314, "Color Definition", 0, no_forms},
    {316, "Units Data", 0, no_forms},
    {320, "Network Subfigure Definition", 0, no_forms},
    {322, "Attribute Table Definition", 0, forms_322},
    {402, "Associativity Instance", igs_unset_int, forms_402},
    {404, "Drawing", igs_unset_int, forms_404},
    {406, "Property", igs_unset_int, forms_406},
    {408, "Singular Subfigure Instance", 0, no_forms},
    {410, "View", igs_unset_int, forms_410},
    {412, "Rectangular Array Subfigure Instance", 0, no_forms},
    {414, "Circular Array Subfigure Instance", 0, no_forms},
    {416, "External Reference", igs_unset_int, forms_416},
    {418, "Nodal Load/Constraint", 0, no_forms},
    {420, "Network Subfigure Instance", 0, no_forms},
    {422, "Attribute Table Instance", igs_unset_int, forms_422},
    {430, "Solid Instance", 0, no_forms},
    {502, "Vertex", 1, forms_502},
    {504, "Edge", 1, forms_504},
    {508, "Loop", 1, forms_508},
    {510, "Face", 1, forms_510},
    {514, "Shell", 1, forms_514},
};

constexpr FlagRow units_rows[] = {
    {1, "Inches"},     {2, "Millimeters"}, {3, "User Defined"}, {4, "Feet"},         {5, "Miles"},        {6, "Meters"},
    {7, "Kilometers"}, {8, "Mils"},        {9, "Microns"},      {10, "Centimeters"}, {11, "Microinches"},
};

constexpr FlagRow version_rows[] = {
    {1, "1.0"},  {2, "ANSI Y14.26M - 1981"}, {3, "2.0"}, {4, "3.0"}, {5, "ASME/ANSI Y14.26M - 1987"},
    {6, "4.0"},  {7, "ASME Y14.26 - 1989"},  {8, "5.0"}, {9, "5.1"}, {10, "5.2"},
    {11, "5.3"},
};

constexpr FlagRow draft_rows[] = {
    {0, "None - No standard specified"},
    {1, "ISO - International Organization for Standards"},
    {2, "AFNOR - French Association for Standardization"},
    {3, "ANSI - American National Standrds Institute"},
    {4, "BSI - British Standards Institute"},
    {5, "CSA - Canadian Standards Association"},
    {6, "DIN - German Institute for Standardization"},
    {7, "JIS - Japanese Institute for Standardization"},
};

/// What a file may be asked for (igsFileOptions::unbounded_lines).
constexpr int line_type = 110;
constexpr FormRow line_forms[] = {{0, 0, "Bounded"}, {1, 1, "Semi-bounded"}, {2, 2, "Unbounded"}};

/// The tables as records, with the names as strings. Built when the first question is asked and never destroyed, so
/// that a question may come from the constructor or the destructor of any static object.
class Records {
 public:
  static const Records& instance() {
    static const Records& records = *new Records;
    return records;
  }

  /// Null for a type that does not exist.
  const igsEntityInfo* entity(int type) const {
    if (type < first_type || type > last_type) return nullptr;
    return m_by_type[static_cast<std::size_t>(type - first_type)];
  }

  /// The line with all its forms.
  const igsEntityInfo& unbounded_lines() const { return m_unbounded_lines; }

  const utString* units(int flag) const { return find(m_units, units_rows[0].flag, flag); }
  const utString* version(int flag) const { return find(m_versions, version_rows[0].flag, flag); }
  const utString* draft(int flag) const { return find(m_drafts, draft_rows[0].flag, flag); }

  const utString no_name;

 private:
  static constexpr int first_type = std::begin(entity_rows)->type;
  static constexpr int last_type = std::prev(std::end(entity_rows))->type;
  static_assert(std::is_sorted(std::begin(entity_rows), std::end(entity_rows),
                               [](const EntityRow& a, const EntityRow& b) { return a.type < b.type; }));

  Records() : m_units(names(units_rows)), m_versions(names(version_rows)), m_drafts(names(draft_rows)) {
    m_entities.reserve(std::size(entity_rows));
    for (const EntityRow& row : entity_rows) {
      igsEntityInfo& info = m_entities.emplace_back(row.name, row.default_form);
      for (const FormRow& form : row.forms) {
        info.add_form(new igsFormInfo(form.min_form, form.max_form, form.name, 0, 0));
      }
      m_by_type[static_cast<std::size_t>(row.type - first_type)] = &info;
    }
    for (const FormRow& form : line_forms) {
      m_unbounded_lines.add_form(new igsFormInfo(form.min_form, form.max_form, form.name, 0, 0));
    }
  }

  static std::vector<utString> names(std::span<const FlagRow> rows) {
    std::vector<utString> result;
    for (const FlagRow& row : rows) result.emplace_back(row.name);
    return result;
  }

  static const utString* find(const std::vector<utString>& names, int first_flag, int flag) {
    if (flag < first_flag || flag - first_flag >= static_cast<int>(names.size())) return nullptr;
    return &names[static_cast<std::size_t>(flag - first_flag)];
  }

  std::vector<igsEntityInfo> m_entities;
  igsEntityInfo m_unbounded_lines{"Line", 0};
  std::array<const igsEntityInfo*, last_type - first_type + 1> m_by_type{};
  std::vector<utString> m_units, m_versions, m_drafts;  // by flag, without gaps
};

const igsEntityInfo* find_entity(int type) { return Records::instance().entity(type); }

const igsEntityInfo* find_entity(int type, const igsFileOptions& options) {
  const bool unbounded_lines = options.unbounded_lines && type == line_type;
  return unbounded_lines ? &Records::instance().unbounded_lines() : find_entity(type);
}

const utString& name_or_empty(const utString* name) { return name != nullptr ? *name : Records::instance().no_name; }

}  // namespace

igsFormInfo::igsFormInfo(int min_form, int max_form, utString name, int min_version, int max_version)
    : m_min_form_number(min_form),
      m_max_form_number(max_form),
      m_form_name(std::move(name)),
      m_min_version(min_version),
      m_max_version(max_version) {}

igsEntityInfo::igsEntityInfo(utString name, int default_form_number)
    : m_entity_name(std::move(name)), m_default_form_number(default_form_number) {}

void igsEntityInfo::add_form(igsFormInfo* form) {
  const std::unique_ptr<igsFormInfo> owned(form);
  if (owned) m_forms.push_back(std::move(*owned));
}

const igsFormInfo* igsEntityInfo::find(int form) const {
  const auto covers = [form](const igsFormInfo& info) {
    return info.min_form_number() <= form && form <= info.max_form_number();
  };
  const auto found = std::find_if(m_forms.rbegin(), m_forms.rend(), covers);
  return found != m_forms.rend() ? &*found : nullptr;
}

bool igsEntityInfo::form_exists(int form) const { return m_forms.empty() ? form == 0 : find(form) != nullptr; }

const igsFormInfo& igsEntityInfo::form_info(int form) const {
  static const igsFormInfo& no_form = *new igsFormInfo;  // never destroyed, as the records
  const igsFormInfo* found = find(form);
  return found != nullptr ? *found : no_form;
}

bool igsInfoDB::entity_exists(int type) { return find_entity(type) != nullptr; }

const utString& igsInfoDB::entity_name(int type) {
  const igsEntityInfo* info = find_entity(type);
  return name_or_empty(info != nullptr ? &info->entity_name() : nullptr);
}

bool igsInfoDB::form_exists(int type, int form) { return form_exists(type, form, {}); }

bool igsInfoDB::form_exists(int type, int form, const igsFileOptions& options) {
  const igsEntityInfo* info = find_entity(type, options);
  return info != nullptr && info->form_exists(form);
}

const utString& igsInfoDB::form_name(int type, int form) { return form_name(type, form, {}); }

const utString& igsInfoDB::form_name(int type, int form, const igsFileOptions& options) {
  const igsEntityInfo* info = find_entity(type, options);
  return name_or_empty(info != nullptr ? &info->form_info(form).form_name() : nullptr);
}

utString igsInfoDB::entity_form_name(int type, int form) {
  return entity_name(type) + "(" + form_name(type, form) + ")";
}

void igsInfoDB::default_form_number(int type, int& form, int& found) {
  form = 0;
  found = 0;
  const igsEntityInfo* info = find_entity(type);
  if (info == nullptr || info->default_form_number() == igs_unset_int) return;
  form = info->default_form_number();
  found = 1;
}

bool igsInfoDB::units_exist(int flag) { return Records::instance().units(flag) != nullptr; }
const utString& igsInfoDB::units_name(int flag) { return name_or_empty(Records::instance().units(flag)); }

bool igsInfoDB::version_exists(int flag) { return Records::instance().version(flag) != nullptr; }
const utString& igsInfoDB::version_name(int flag) { return name_or_empty(Records::instance().version(flag)); }

bool igsInfoDB::draft_exists(int flag) { return Records::instance().draft(flag) != nullptr; }
const utString& igsInfoDB::draft_name(int flag) { return name_or_empty(Records::instance().draft(flag)); }
