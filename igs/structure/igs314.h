#pragma once

#include "igs/fields/igsEntity.h"
#include "igs/objects/igsStructure.h"
#include "igs/support/undefined.h"
#include "igs/support/utString.h"

/// Color Definition (IGES 5.3, type 314), to which the colour field of directory entries may point: each component in
/// percent of full intensity, 0 to 100.
class IGS_API igs314 : public igsEntity<igs314, "igs314", igsStructure> {
 public:
  /// The components undefined, without a name.
  igs314();

  double red() const { return m_red; }
  void set_red(double percent) { m_red = percent; }
  double green() const { return m_green; }
  void set_green(double percent) { m_green = percent; }
  double blue() const { return m_blue; }
  void set_blue(double percent) { m_blue = percent; }
  /// May be empty.
  const utString& colour_name() const { return m_colour_name; }
  void set_colour_name(const utString& name) { m_colour_name = name; }

  void check_pd() const override;

  template <class E, class V>
  static void fields(E& entity, V& visit) {
    visit("Red", entity.m_red);
    visit("Green", entity.m_green);
    visit("Blue", entity.m_blue);
    visit("Name", entity.m_colour_name);
  }

 private:
  double m_red = igs_undefined_real;
  double m_green = igs_undefined_real;
  double m_blue = igs_undefined_real;
  utString m_colour_name;
};
