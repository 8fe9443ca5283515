#include "tests/lib/debug/log_under_test.h"

#include "lib/debug/machine_facts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>

using namespace pinorama;

test::LogFolder::LogFolder() : variable_("HOME", home_.path().c_str()) {}

std::string test::LogFolder::log() const
{
    // A stamp stands at the beginning or after the end of an entry or of a banner.
    const std::regex stamp("(\\d+/\\d+/\\d+)\t(\\d+:\\d\\d:\\d\\d [AP]M)\t");
    return std::regex_replace(readFile(logPath()), stamp, "DATE\tTIME\t");
}

std::string test::LogFolder::entries() const
{
    const std::string text = log();
    EXPECT_EQ(text.compare(0, banner().size(), banner()), 0) << text;
    EXPECT_EQ(text.find("Skallion ", 1), std::string::npos) << text;
    return text.substr(std::min(banner().size(), text.size()));
}

void test::LogFolder::startLog(std::string_view content) const
{
    std::filesystem::create_directories(desktop());
    (void)home_.write("Desktop/KVL Log.txt", content);
}

std::string test::banner()
{
#if defined(__x86_64__) || defined(__i386__)
    const std::string processor = "Intel";
#elif defined(__powerpc__)
    const std::string processor = "PowerPC";
#elif defined(__aarch64__) || defined(__arm__)
    const std::string processor = "ARM";
#elif defined(__riscv)
    const std::string processor = "RISC-V";
#else
    const std::string processor = "native";
#endif
    const MachineFacts facts = machineFacts();
    return "Skallion " + processor + " code running\nMac OS X  " +
           std::to_string(facts.systemMajor) + "." + std::to_string(facts.systemMinor) + "." +
           std::to_string(facts.systemFix) + "\nRAM:   " + std::to_string(facts.memory) + "  MB\n" +
           std::to_string(facts.processors) + " CPUs with " + std::to_string(facts.clock) +
           " MHz\n\n\n";
}
