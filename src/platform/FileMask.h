#pragma once

#include <QString>

// File masks such as "*.JPG;*.CMP" or "*LOG": patterns separated by ";", with "*" for any
// run of characters and "?" for one. Names match case-insensitively.
namespace FileMask {

bool matches(const QString& mask, const QString& fileName);

} // namespace FileMask
