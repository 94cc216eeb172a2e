#pragma once

#include "igs/support/export.h"
#include "igs/support/utString.h"

class igsGlobalError;

/// Units flag of the Global section, parameter 14: 1 inch, 2 millimetre, 3 named by the units name alone, 4 foot, 5
/// mile, 6 metre, 7 kilometre, 8 mil (0.001 inch), 9 micron, 10 centimetre, 11 microinch.
using igsUnitType = int;

/// The length units of a file (IGES 5.3, sections 2.2.4.3.14 and 15): the flag with the name as the file gives it.
class IGS_API igsUnits {
 public:
  /// Millimetres.
  igsUnits() : igsUnits(2) {}
  /// The flag with its standard name.
  explicit igsUnits(igsUnitType flag);
  /// As given, whether they agree or not.
  igsUnits(utString name, igsUnitType flag);

  igsUnitType type() const { return m_flag; }
  const utString& name() const { return m_name; }
  /// Changes the name alone; any text is taken.
  void set_name(const utString& name) { m_name = name; }

  /// Null for sound units. Otherwise a new error, which is logged already and not to be deleted:
  /// igsGlobalSectionInvalidUnitsFlag for a flag outside 1 to 11, else igsGlobalSectionUnitNameTypeMismatch.
  igsGlobalError* check() const;

  /// The standard name: "INCH", "MM", "FT", "MI", "M", "KM", "MIL", "UM", "CM", "UIN"; "UNKNOWN" for any other flag,
  /// 3 among them.
  static utString name(igsUnitType flag);
  /// The flag that a name stands for, letter by letter: a standard name or "IN"; 0 for any other.
  static igsUnitType type(const utString& name);
  /// The flag that a name stands for to people: as type(), and for the usual words and abbreviations, one or several,
  /// British or American ("inches", "millimetre", "ft"), in capitals or not, with blanks around and a dot at the end; 0
  /// for any other.
  static igsUnitType recognised(const utString& name);
  /// 1 when the name stands for the flag, or for any units when the flag is 3; else 0.
  static int check_units(igsUnitType flag, const utString& name);
  /// The factor that turns a length in units `from` into one in units `to`: 25.4 from 1 to 2. A flag without a length
  /// of its own (3, or outside 1 to 11) on either side gives 1.
  static double convert_between_units(igsUnitType from, igsUnitType to);

  bool operator==(const igsUnits&) const = default;

 private:
  igsUnitType m_flag;
  utString m_name;
};
