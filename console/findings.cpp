#include "console/findings.h"

#include "console/form/code_page.h"
#include "console/form/drives.h"
#include "console/form/report.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>

namespace console {

namespace {

using Json = nlohmann::ordered_json;

const char* LevelOf(const Finding& finding) {
    return finding.warning ? "warning" : "error";
}

// Finding a file's name asks the disk, so it is done once for each file.
class HostTexts {
public:
    explicit HostTexts(std::string (*text_of)(const std::string&)) : text_of_(text_of) {}

    const std::string& Of(const std::string& file) {
        const auto found = texts_.find(file);
        return found != texts_.end() ? found->second
                                     : texts_.emplace(file, text_of_(file)).first->second;
    }

private:
    std::string (*text_of_)(const std::string&);
    std::map<std::string, std::string> texts_;
};

void PrintText(const std::vector<Finding>& findings, std::ostream& out) {
    HostTexts files(HostText);
    for (const Finding& finding : findings) {
        out << files.Of(finding.file) << ':';
        if (finding.line > 0)
            out << finding.line << ':' << finding.column << ':';
        if (finding.warning)
            out << " warning:";
        if (finding.rule > 0)
            out << " rule " << finding.rule << ':';
        out << ' ' << OneLine(ToUtf8(finding.text)) << " [" << finding.id << "]\n";
    }
}

void PrintJson(const std::vector<Finding>& findings, std::ostream& out) {
    HostTexts files(HostText);
    Json list = Json::array();
    for (const Finding& finding : findings) {
        Json entry = {{"file", files.Of(finding.file)}};
        if (finding.line > 0) {
            entry["line"] = finding.line;
            entry["column"] = finding.column;
        }
        if (finding.rule > 0)
            entry["rule"] = finding.rule;
        entry["level"] = LevelOf(finding);
        entry["id"] = finding.id;
        entry["text"] = ToUtf8(finding.text);
        list.push_back(std::move(entry));
    }
    out << list.dump(2) << '\n';
}

// A file as an address: what is in or below the current folder stays relative, so that a service
// finds it in its own checkout.
std::string AddressOf(const std::string& file) {
    const std::string text = HostText(file);
    std::string plain = text;
    std::replace(plain.begin(), plain.end(), '\\', '/');
    const bool drive = plain.size() > 1 && plain[1] == ':';
    std::string address = drive ? "file:///" : plain.starts_with('/') ? "file://" : "";
    constexpr char kHex[] = "0123456789ABCDEF";
    for (const char c : plain) {
        const auto byte = static_cast<unsigned char>(c);
        const bool bare = (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
                          (byte >= 'a' && byte <= 'z') ||
                          std::string_view("-._~/").find(c) != std::string_view::npos ||
                          (drive && c == ':');
        if (bare)
            address += c;
        else
            address.append({'%', kHex[byte >> 4], kHex[byte & 15]});
    }
    return address;
}

Json SarifResult(const Finding& finding, int rule_index, const std::string& address) {
    Json place = {{"artifactLocation", {{"uri", address}}}};
    if (finding.line > 0)
        place["region"] = {{"startLine", finding.line}, {"startColumn", finding.column}};
    std::string text = ToUtf8(finding.text);
    if (finding.rule > 0)
        text = "rule " + std::to_string(finding.rule) + ": " + text;
    return {{"ruleId", finding.id},
            {"ruleIndex", rule_index},
            {"level", LevelOf(finding)},
            {"message", {{"text", text}}},
            {"locations", Json::array({{{"physicalLocation", place}}})}};
}

void PrintSarif(const std::vector<Finding>& findings, std::ostream& out) {
    HostTexts addresses(AddressOf);
    Json rules = Json::array();
    Json results = Json::array();
    std::map<std::string, int> numbers;
    for (const Finding& finding : findings) {
        const auto [number, is_new] =
            numbers.try_emplace(finding.id, static_cast<int>(rules.size()));
        if (is_new)
            rules.push_back({{"id", finding.id}});
        results.push_back(SarifResult(finding, number->second, addresses.Of(finding.file)));
    }
    const Json driver = {{"name", "zentrikc"}, {"version", ZENTRIK_VERSION}, {"rules", rules}};
    const Json run = {
        {"tool", {{"driver", driver}}}, {"columnKind", "unicodeCodePoints"}, {"results", results}};
    const Json log = {{"$schema", "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/"
                                  "schemas/sarif-schema-2.1.0.json"},
                      {"version", "2.1.0"},
                      {"runs", Json::array({run})}};
    out << log.dump(2) << '\n';
}

} // namespace

void Print(const std::vector<Finding>& findings, Format format, std::ostream& out) {
    switch (format) {
    case Format::Text:
        return PrintText(findings, out);
    case Format::Json:
        return PrintJson(findings, out);
    case Format::Sarif:
        return PrintSarif(findings, out);
    }
}

Lines::Lines(std::string_view text) : starts_{0} {
    for (std::size_t at = text.find('\n'); at != text.npos; at = text.find('\n', at + 1))
        starts_.push_back(at + 1);
}

void Lines::Locate(std::size_t offset, Finding& finding) const {
    const auto after = std::upper_bound(starts_.begin(), starts_.end(), offset);
    finding.line = static_cast<int>(after - starts_.begin());
    finding.column = static_cast<int>(offset - *(after - 1)) + 1;
}

} // namespace console
