// Standard output and standard error of the tool.
#ifndef FILELISTMANAGEMENT_TOOLS_OUTPUT_H
#define FILELISTMANAGEMENT_TOOLS_OUTPUT_H

#include <nlohmann/json_fwd.hpp>
#include <string>

namespace flm::tool {

// Standard output. What cannot be written is remembered and judged by FinishOutput.
void Print(const std::string& text);
void PrintLine(const std::string& text);
void PrintJson(const nlohmann::ordered_json& value);

// JSON as it may be written to standard output: indented, or in one line.
constexpr int kJsonIndent = 2;
constexpr int kJsonInOneLine = -1;
std::string JsonLines(const nlohmann::ordered_json& value, int indent);

// Whether nobody reads on: what a long list has left to say need not be found out any more.
bool OutputIsGone();

// One line on standard error, with the tool's name in front.
void Complain(const std::string& message);

// Flushes standard output and gives the status of the process: `status`, or failure when the output
// could not be written. A reader that closed the pipe has seen enough and is no failure.
int FinishOutput(int status);

}  // namespace flm::tool

#endif
