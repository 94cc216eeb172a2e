#include "igs/file/igsFile_errors.h"

int igsFileDENullCharacters::fix() {
  message(
      "Warning : There were null characters found in line %d of the Directory Entry section.\n"
      "These have been replaced with spaces.\n",
      key());
  return 1;
}

int igsFileInvalidLineNumbers::fix() {
  message(
      "Warning : There were out of sequence line numbers found in this file.\n"
      "This may cause some data to be processed incorrectly.\n");
  return 1;
}

int igsFileBlankLine::fix() {
  message("Warning : There are blank line(s) in this file.\n");
  return 1;
}

int igsFileNoPDData::fix() {
  message("Warning : There is no Parameter Data associated with object DE %d.\n", key());
  return 1;
}

int igsFilePDNullCharacters::fix() {
  message(
      "Warning : There were null characters found in the Parameter Data for DE %d.\n"
      "These have been replaced with spaces.\n",
      key());
  return 1;
}

// The two texts below end without a line end, as hosts expect them.

int igsFileLineNumberTooLarge::fix() {
  message(
      "Error: %s limit of 10 million lines per section exceeded.\n"
      "See the Frequently Asked Questions in the Help for more details",
      "IGES");
  return 0;
}

int igsFileBackPtrTooLarge::fix() {
  message(
      "Error: %s limit of 5 million entities exceeded.\n"
      "See the Frequently Asked Questions in the Help for more details",
      "IGES");
  return 0;
}
