#pragma once

/// The sections of an IGES file, in file order. The values are part of the interface and never change.
enum igsFileSection : int {
  igsStartSectionId = 0,      ///< S
  igsGlobalSectionId = 1,     ///< G
  igsDirectorySectionId = 2,  ///< D
  igsParameterSectionId = 3,  ///< P
  igsTerminateSectionId = 4,  ///< T
  igsNoSectionId = 5          ///< a record without a valid section letter; also the number of sections
};
