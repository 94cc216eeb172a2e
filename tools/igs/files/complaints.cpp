#include "files/complaints.h"

#include <iostream>

#include "text/text.h"

void complain(std::ostream& err, const std::string& file, const std::string& reason) {
  Progress::interrupt();
  err << "igs: " << printable(file) << ": " << reason << std::endl;
}

void complain_of_messages(std::ostream& err, const Model& model) {
  model.messages().for_each([&](const std::string& message) {
    const std::size_t end = message.find_last_not_of('\n');
    complain(err, model.name(), printable(message.substr(0, end == std::string::npos ? 0 : end + 1)));
  });
}

bool flush_output() {
  std::cout.flush();
  if (!std::cout) complain(std::cerr, "standard output", "write error");
  return static_cast<bool>(std::cout);
}
