#pragma once

#include <string>
#include <vector>

/// The environment variables now set that say something about this process alone, and would mislead a program
/// that it starts. Any thread.
std::vector<std::string> ownVariables();

/// The user's environment for a program that this process starts, without `ownVariables()`: texts
/// `NAME=value`. Any thread.
std::vector<std::string> programEnvironment();
