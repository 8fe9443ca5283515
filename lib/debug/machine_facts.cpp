#include "lib/debug/machine_facts.h"

#include "base/descriptor.h"

#include <charconv>
#include <cstddef>
#include <string>

#include <fcntl.h>
#include <sys/sysinfo.h>
#include <sys/utsname.h>
#include <unistd.h>

using namespace pinorama;

namespace {
// The number that `text` begins with, taken off it; 0 if there is none.
std::int32_t takeNumber(std::string_view* text)
{
    std::int32_t number = 0;
    const auto end = std::from_chars(text->data(), text->data() + text->size(), number).ptr;
    text->remove_prefix(static_cast<std::size_t>(end - text->data()));
    return number;
}

// The beginning of one of the system's files, up to a size in which the first processor has its
// place. Such files have no length of their own, so they are read until they end.
std::string beginningOf(const char* path)
{
    const DescriptorHolder file(openDescriptor(path, O_RDONLY));
    if (!file) return {};
    std::string text(16 * 1024, '\0');
    const std::int64_t read = readAt(file.get(), 0, text.data(), text.size());
    text.resize(read < 0 ? 0 : static_cast<std::size_t>(read));
    return text;
}

// For processors with a variable clock the system reports the maximum in kHz.
std::int32_t highestClock()
{
    const std::string text = beginningOf("/sys/devices/system/cpu/cpu0/cpufreq/cpuinfo_max_freq");
    std::string_view rest = text;
    return takeNumber(&rest) / 1000;
}
}  // namespace

pinorama::MachineFacts pinorama::machineFacts()
{
    MachineFacts facts{};

    utsname system;
    if (uname(&system) == 0) readRelease(system.release, &facts);

    struct sysinfo memory;
    if (sysinfo(&memory) == 0) {
        const std::uint64_t bytes = std::uint64_t{memory.totalram} * memory.mem_unit;
        facts.memory = static_cast<std::int32_t>(bytes >> 20);
    }

    const long processors = sysconf(_SC_NPROCESSORS_ONLN);
    if (processors > 0) facts.processors = static_cast<std::int32_t>(processors);

    facts.clock = clockInProcessorList(beginningOf("/proc/cpuinfo"));
    if (facts.clock == 0) facts.clock = highestClock();
    return facts;
}

void pinorama::readRelease(std::string_view release, MachineFacts* facts)
{
    for (std::int32_t* number : {&facts->systemMajor, &facts->systemMinor, &facts->systemFix}) {
        *number = takeNumber(&release);
        if (release.empty() || release.front() != '.') return;
        release.remove_prefix(1);
    }
}

std::int32_t pinorama::clockInProcessorList(std::string_view text)
{
    const std::size_t line = text.find("cpu MHz");
    if (line == std::string_view::npos) return 0;
    text.remove_prefix(line);
    text = text.substr(0, text.find('\n'));

    const std::size_t digits = text.find_first_of("0123456789");
    if (digits == std::string_view::npos) return 0;
    text.remove_prefix(digits);
    return takeNumber(&text);
}
