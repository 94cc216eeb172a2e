#pragma once

#include <cstddef>
#include <vector>

#include "igs/objects/igsFieldVisitor.h"
#include "igs/objects/igsObject.h"

/// What the parameter fields of an entity hold.
struct igsFieldsOf final : igsFieldVisitor {
  explicit igsFieldsOf(const igsObject& entity) { entity.visit_fields(*this); }

  void integer(const char*, int) override { ++size; }
  void real(const char*, double) override { ++size; }
  void text(const char*, const utString& value) override { size += 1 + value.size(); }
  void reference(const char*, const igsObject* target) override {
    ++size;
    if (target != nullptr) targets.push_back(target);
  }
  void begin_group(const char*) override {}
  void end_group() override {}

  std::size_t size = 0;                   ///< fields, and characters of texts
  std::vector<const igsObject*> targets;  ///< in the order of the fields
};
