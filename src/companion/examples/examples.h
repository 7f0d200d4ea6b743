#pragma once

#include <span>
#include <string_view>

namespace ORR::Companion {

// An input to start from.
struct Example
{
    std::string_view engine; // that draws it, by its name in small letters
    std::string_view title; // what it shows; a few words
    std::string_view text;
};

// One for each engine, in the order of their table (drawing/layout_table.h): of the files in
// examples/ of the project those that list.txt names, as the build puts them into the program.
std::span<const Example> examples();

// A small one for each engine, styled, for whoever begins his own: starters/.
std::span<const Example> starters();

} // namespace ORR::Companion
