#pragma once

#include <utility>

#include "igs/fields/igsEntity.h"
#include "igs/objects/igsDefinition.h"
#include "igs/support/utString.h"

/// External Reference (IGES 5.3, type 416 form 1): another file as a whole. The library never opens it.
class IGS_API igs416 : public igsEntity<igs416, "igs416", igsDefinition> {
 public:
  igs416();

  const utString& file_name() const { return m_file_name; }
  void set_file_name(utString name) { m_file_name = std::move(name); }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("FileName", entity.m_file_name);
  }

 private:
  utString m_file_name;
};
