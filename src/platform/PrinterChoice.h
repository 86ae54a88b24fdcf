#pragma once

class QPrinter;

// The program's printer: the one chosen in the printer setup, which every print job uses.
namespace PrinterChoice {

QPrinter& printer();

} // namespace PrinterChoice
