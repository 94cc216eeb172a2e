#pragma once

/// The sections of an IGES file, in file order. The values are part of the interface and never change.
enum igsFileSection : int {
  igsStartSectionId = 0,      ///< S
  igsGlobalSectionId = 1,     ///< G
  igsDirectorySectionId = 2,  ///< D
  igsParameterSectionId = 3,  ///< P
  igsTerminateSectionId = 4,  ///< T
  igsNoSectionId = 5          ///< a record without a valid section letter
};

/// Number of real sections.
inline constexpr int num_file_sections = 5;
/// The letters of the sections, in the order of igsFileSection.
inline constexpr char section_letters[] = "SGDPT";

/// The section of a letter; igsNoSectionId for any other character.
constexpr igsFileSection convert_char_to_section(char letter) {
  int section = 0;
  while (section < num_file_sections && section_letters[section] != letter) ++section;
  return static_cast<igsFileSection>(section);
}
