#include <pybind11/pybind11.h>
#include <pybind11/stl.h>

#include <cerrno>
#include <optional>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>

#include "command_line/settings.h"
#include "entity.h"
#include "entity_list.h"
#include "findings.h"
#include "header.h"
#include "host.h"
#include "input.h"
#include "text/text.h"

namespace {

igsFileOptions make_options(bool keep, bool strict, bool recover) {
  igsFileOptions options{.keep = keep, .strict = strict, .recover = recover, .lines = true, .unbounded_lines = true};
  options.style.shortest_reals = true;
  options.style.exponent_letter = igsExponentLetter::as_read;
  options.style.line_end = igsLineEnd::as_read;
  return options;
}

[[noreturn]] void throw_os_error(int error, const std::string& name = "") {
  errno = error;
  name.empty() ? PyErr_SetFromErrno(PyExc_OSError) : PyErr_SetFromErrnoWithFilename(PyExc_OSError, name.c_str());
  throw py::error_already_set();
}

std::shared_ptr<Host> read(const std::string& name, std::streambuf& buffer, const igsFileOptions& options) {
  std::istream stream(&buffer);
  try {
    return Host::read(name, stream, options);
  } catch (const UnreadableFile& unreadable) {
    throw py::value_error((name.empty() ? "" : name + ": ") + unreadable.what());
  }
}

std::shared_ptr<Host> read_bytes(const std::string& name, const py::bytes& bytes, const igsFileOptions& options) {
  ViewBuffer buffer{std::string_view(bytes)};
  return read(name, buffer, options);
}

/// Of a descriptor, which stays open.
std::shared_ptr<Host> read_open(const std::string& name, int descriptor, const igsFileOptions& options) {
  DescriptorBuffer buffer(descriptor);
  try {
    std::shared_ptr<Host> host = read(name, buffer, options);
    if (buffer.error() == 0) return host;
  } catch (const py::value_error&) {
    if (buffer.error() == 0) throw;
  }
  throw_os_error(buffer.error(), name);
}

py::bytes written(Host& host, std::optional<std::string> exponent, std::optional<std::string> line_ends) {
  igsFile& file = host.model().file();
  igsFileOptions options = file.options();
  if (exponent) options.style.exponent_letter = *exponent == "D" ? igsExponentLetter::d : igsExponentLetter::e;
  if (line_ends) options.style.line_end = *line_ends == "crlf" ? igsLineEnd::crlf : igsLineEnd::lf;
  const igsFileOptions before = file.options();
  file.set_options(options);
  std::ostringstream bytes;
  bool is_written = false;
  int why = 0;
  {
    const py::gil_scoped_release unlocked;
    std::ostream nowhere(nullptr);
    utOstream complaints(nowhere);
    errno = 0;
    is_written = file.write(bytes, complaints) != 0;
    why = errno;
    file.set_options(before);
    host.model().expect_memory();
  }
  if (!is_written) throw_os_error(why != 0 ? why : EIO);  // its temporary file found no room
  return {std::move(bytes).str()};
}

std::vector<std::string> messages_of(const Host& host) {
  std::vector<std::string> texts;
  host.model().messages().for_each([&](const std::string& text) { texts.push_back(to_utf8(text)); });
  return texts;
}

HostClass define_file(py::module_& module) {
  py::class_<igsFileOptions>(module, "Options").def(py::init(&make_options));
  HostClass host(module, "Model");
  host.def_static("read", &read_bytes)
      .def_static("read_open", &read_open)
      .def_static("new", &Host::make)
      .def_property_readonly("is_changed", &Host::is_changed)
      .def_property_readonly("fault", &Host::fault)
      .def_property_readonly("messages", &messages_of)
      .def_property_readonly("entities", &Host::entities)
      .def("__len__", [](const Host& self) { return self.file().num_entities(); })
      .def("entity", [](Host& self, int de) { return self.entity(self.file().entity(de)); })
      .def("add", &Host::add)
      .def("remove", &Host::remove)
      .def("retire", &Host::retire)
      .def("write", &written, py::arg("exponent") = py::none(), py::arg("line_ends") = py::none());
  return host;
}

}  // namespace

PYBIND11_MODULE(_igs, module) {
  module.doc() = "What of the package igs is written in C++.";
  use_source_date();
  HostClass host = define_file(module);
  define_header(module, host);
  define_entity_list(module);
  EntityClass entity = define_entity(module);
  define_views(module, entity);
  define_shapes(module, host, entity);
  define_findings(module);
}
