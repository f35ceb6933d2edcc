#include "library/text/Regex.h"

#include "library/diagnostics/Prerelease.h"
#include "library/expansion/DatePass.h"
#include "library/text/MultiByte.h"

#include <time.h>

#include <algorithm>
#include <stdexcept>

namespace Tesk {

namespace {

constexpr auto npos = std::string::npos;

// One character whose escaped form stands for itself, so that the whole-text match can be
// found by hand. (An escaped "<", for one, stands for the beginning of a word.)
bool isPlainDelimiter(std::string_view sDelimiter)
{
    return sDelimiter.size() == 1 && std::string_view("%[]{}()|#$!@&~^*+?/:;,.=-\"\\").find(sDelimiter[0]) != npos;
}

// What regex_match of "(^.*)START(.+?)END(.*$)" finds on the whole text, without its stack
// and its limits: group 1 is greedy, so the last START that leaves room counts, and group 2
// ends at the first END that leaves it a character. Each round looks only at what the one
// before has changed.
std::string expandByHand(std::string sText, const std::string& sStart, char cEnd, __time64_t time, bool bUTC)
{
    std::size_t lastEnd = sText.rfind(cEnd);
    std::size_t from = npos;
    while (lastEnd != npos && lastEnd > sStart.size()) {
        const std::size_t at = sText.rfind(sStart, std::min(from, lastEnd - sStart.size() - 1));
        if (at == npos)
            break;
        const std::size_t format = at + sStart.size();
        const std::size_t end = sText.find(cEnd, format + 1);
        const std::string sTime = formatTime(time, std::string_view(sText).substr(format, end - format), bUTC);
        sText.replace(at, end + 1 - at, sTime);
        from = at + sTime.size();
        // Behind the new text there is no START that counts, but maybe an END.
        lastEnd = lastEnd == end ? sText.rfind(cEnd, from) : lastEnd - (end + 1 - from);
    }
    return sText;
}

std::string expandByExpression(std::string sText, const std::string& sPattern, __time64_t time, bool bUTC)
{
    const boost::regex expression(sPattern);
    boost::smatch match;
    try {
        while (boost::regex_match(sText, match, expression) && match.size() == 4)
            sText = match[1].str() + formatTime(time, match[2].str(), bUTC) + match[3].str();
    } catch (const std::runtime_error&) {
        // Too complex a text for the expression: the tokens stay.
        TESK_TRACE("** Date tokens left: the text is too complex.\n");
    }
    return sText;
}

// The directives of the C runtime, each with or without "#". Any other one would make its
// invalid-parameter handler end the process.
bool isKnownFormat(std::string_view sFormat)
{
    const MultiByte::CLeadBytes lead;
    for (std::size_t at = 0; at < sFormat.size(); at = lead.next(sFormat, at)) {
        if (sFormat[at] != '%')
            continue;
        if (++at < sFormat.size() && sFormat[at] == '#')
            ++at;
        if (at >= sFormat.size() || std::string_view("aAbBcdHIjmMpSUwWxXyYzZ%").find(sFormat[at]) == npos)
            return false;
    }
    return true;
}

}  // namespace

std::string expandDateKeyword(std::string_view sKeyword, __time64_t time, bool bUTC, std::string sText,
                              std::string_view sStart, std::string_view sEnd)
{
    const std::string sOpening = std::string(sKeyword) + "::";
    if (sText.find(sOpening) == npos)
        return sText;
    if (isPlainDelimiter(sStart) && isPlainDelimiter(sEnd))
        return expandByHand(std::move(sText), std::string(sStart) + sOpening, sEnd[0], time, bUTC);
    const std::string sPattern = "(^.*)\\" + std::string(sStart) + sOpening + "(.+?)\\" + std::string(sEnd) + "(.*$)";
    return expandByExpression(std::move(sText), sPattern, time, bUTC);
}

std::string formatTime(__time64_t time, std::string_view sFormat, bool bUTC)
{
    TESK_ASSERT_TEXT(!sFormat.empty(), "_tcslen(sFormat) != 0");
    std::string sDirectives(sFormat);
    MultiByte::replaceAll(sDirectives, "|", "%", true);
    const tm* const pTime = bUTC ? ::_gmtime64(&time) : ::_localtime64(&time);
    if (!pTime || !isKnownFormat(sDirectives))
        return {};
    char sTime[128];
    return std::string(sTime, ::strftime(sTime, sizeof sTime, sDirectives.c_str(), pTime));
}

}  // namespace Tesk
