#include "igs/objects/igsKeptParts.h"

#include <algorithm>

#include "igs/objects/igsFieldVisitor.h"
#include "igs/objects/igsObject.h"
#include "igs/output/igsOutStream.h"
#include "igs/support/undefined.h"
#include "igs/support/utOstream.h"

namespace {

void write_group(igsOutStream& out, const std::vector<igsObjectPtr>& group) {
  const auto left =
      std::count_if(group.begin(), group.end(), [](const igsObjectPtr& pointer) { return pointer.de_number() != 0; });
  out.write_integer(static_cast<int>(left));
  for (const igsObjectPtr& pointer : group) {
    if (pointer.de_number() != 0) out.write_integer(pointer.de_number());
  }
}

bool any_left(const std::vector<igsObjectPtr>& group) {
  return std::any_of(group.begin(), group.end(), [](const igsObjectPtr& pointer) { return pointer.de_number() != 0; });
}

void print_group(utOstream& os, const char* label, const std::vector<igsObjectPtr>& group) {
  if (!any_left(group)) return;
  os << label << " =";
  for (const igsObjectPtr& pointer : group) {
    if (pointer.de_number() != 0) os << " @" << pointer.de_number();
  }
  os << utEndl;
}

void visit_group(igsFieldVisitor& visitor, const char* label, const std::vector<igsObjectPtr>& group) {
  if (!any_left(group)) return;
  visitor.begin_group(label);
  for (const igsObjectPtr& pointer : group) visitor.reference(nullptr, pointer.object());
  visitor.end_group();
}

void visit_texts_group(igsFieldVisitor& visitor, const char* label, const igsFieldTexts& texts) {
  if (texts.empty()) return;
  visitor.begin_group(label);
  igs_visit_texts(texts, visitor);
  visitor.end_group();
}

}  // namespace

void igs_visit_texts(const igsFieldTexts& texts, igsFieldVisitor& visitor) {
  for (const std::string_view field : texts.fields()) {
    const igsFieldKind kind = igsFieldTexts::kind(field);
    const int integer = igsFieldTexts::integer(field, igs_unset_int);
    if (kind == igsFieldKind::integer && integer != igs_unset_int) {
      visitor.integer(nullptr, integer);
    } else if (kind == igsFieldKind::real) {
      visitor.real(nullptr, igsFieldTexts::real(field));
    } else {
      visitor.text(nullptr, utString(kind == igsFieldKind::string ? igsFieldTexts::string(field) : field));
    }
  }
}

bool igs_may_hold_numbers(const igsFieldTexts& texts) {
  const std::vector<std::string_view> fields = texts.fields();
  return std::any_of(fields.begin(), fields.end(),
                     [](std::string_view field) { return igsFieldTexts::integer(field, 0) % 2 != 0; });
}

bool igsKeptParts::may_hold_numbers() const {
  return igs_may_hold_numbers(extra_fields) || igs_may_hold_numbers(unread_fields);
}

void igsKeptParts::write(igsOutStream& out) const {
  const bool second = groups > 1 || any_left(properties);
  if (second || groups > 0 || any_left(associativities)) write_group(out, associativities);
  if (second) write_group(out, properties);
  for (const std::string_view field : unread_fields.fields()) out.write_field(field);
  for (const std::string_view field : extra_fields.fields()) out.write_field(field);
  out.set_comment(comment);
}

void igsKeptParts::print(utOstream& os) const {
  print_group(os, "Associativities", associativities);
  print_group(os, "Properties", properties);
  for (const std::string_view field : unread_fields.fields()) os << "UnreadField = " << field << utEndl;
  for (const std::string_view field : extra_fields.fields()) os << "ExtraField = " << field << utEndl;
  if (!comment.empty()) os << "Comment = \"" << comment << '"' << utEndl;
}

void igsKeptParts::visit_pointers(igsPointerVisitor& visitor) {
  for (igsObjectPtr& pointer : associativities) visitor.visit(pointer);
  for (igsObjectPtr& pointer : properties) visitor.visit(pointer);
  visitor.visit(structure);
}

void igsKeptParts::visit_fields(igsFieldVisitor& visitor) const {
  visit_group(visitor, "Associativities", associativities);
  visit_group(visitor, "Properties", properties);
  visit_texts_group(visitor, "UnreadFields", unread_fields);
  visit_texts_group(visitor, "ExtraFields", extra_fields);
  if (!comment.empty()) visitor.text("Comment", comment);
}
