#include "tests/cli/info_run.h"

#include <gtest/gtest.h>

#include <sstream>

test::ProgramResult test::run(std::vector<std::string> arguments,
                              const std::vector<std::pair<std::string, std::string>>& variables)
{
    arguments.insert(arguments.begin(), PINORAMA_INFO);
    return runProgram({.command = std::move(arguments), .variables = variables});
}

std::vector<std::string> test::linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) lines.push_back(line);
    return lines;
}

std::vector<nlohmann::ordered_json> test::objectsOf(const std::string& out)
{
    std::vector<nlohmann::ordered_json> objects;
    for (const std::string& line : linesOf(out)) {
        objects.push_back(nlohmann::ordered_json::parse(line));
    }
    return objects;
}

std::size_t test::countOf(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + 1)) count++;
    return count;
}

bool test::isXML(const std::string& path)
{
    const ProgramResult result = runProgram({.command = {"/usr/bin/xmllint", "--noout", path}});
    EXPECT_NE(result.status, 127) << "xmllint is not installed";
    return result.status == 0;
}
