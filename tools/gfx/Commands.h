#pragma once

#include "Options.h"

namespace Tool
{

// One command each; they return an exit code.

int Check(const SOptions& a_options);
int Model(const SOptions& a_options);
int Shot(const SOptions& a_options);
int Tree(const SOptions& a_options);
int View(const SOptions& a_options);

} // namespace Tool
