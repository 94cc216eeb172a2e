#pragma once

#include <optional>
#include <string>
#include <vector>

#include "files/model.h"

/// Where an error stands in the input, as an editor counts lines, from 1: the line of the directory entry, of the first
/// record of the parameter data, or of the parameter of the Global section that it is about; else where its section
/// begins. To be asked before the file is written.
int line_of(const igsFile& file, igsLogID log, const igsError& error);
/// The parameter of the Global section that an error of it is about, 1 to 26; 0 where it is about none.
int global_parameter(const igsError& error);
/// An entity for people: "126 Rational B-Spline Curve (DE 41)", or "DE 41" where its type is not known.
std::string place_of_entity(int de, std::optional<int> type);
/// Several: "DE 41, DE 7", the first twenty "and 5 more".
std::string places_of_entities(const std::vector<int>& des);
/// What an error is about, for people: that, or "Global section".
std::string place_of(igsLogID log, const igsError& error, const EntityTypes& types);
