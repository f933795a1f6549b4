#include "message_definition.h"

#include <algorithm>
#include <cctype>
#include <sstream>

namespace RosMsgParser {

namespace {

std::string Trim(const std::string& text)
{
    const auto first = std::find_if_not(text.begin(), text.end(), [](unsigned char c) { return std::isspace(c); });
    const auto last = std::find_if_not(text.rbegin(), text.rend(), [](unsigned char c) { return std::isspace(c); });
    return first < last.base() ? std::string(first, last.base()) : std::string();
}

bool IsValidName(const std::string& name)
{
    if (name.empty() || !(std::isalpha(static_cast<unsigned char>(name[0])) || name[0] == '_')) {
        return false;
    }
    return std::all_of(name.begin(), name.end(),
                       [](unsigned char c) { return std::isalnum(c) || c == '_'; });
}

bool IsValidTypeName(const std::string& name)
{
    const std::size_t slash = name.find('/');
    if (slash == std::string::npos) {
        return IsValidName(name);
    }
    return IsValidName(name.substr(0, slash)) && IsValidName(name.substr(slash + 1));
}

ROSField ParseLine(const std::string& rawLine)
{
    std::string line = rawLine;
    // "type name" or "type NAME=value"; string constants keep everything behind "=".
    const std::size_t space = line.find_first_of(" \t");
    if (space == std::string::npos) {
        throw ParseError("bad field line: " + rawLine);
    }
    std::string typeText = line.substr(0, space);
    std::string rest = Trim(line.substr(space));
    const std::size_t equals = rest.find('=');
    std::string name;
    std::string value;
    if (equals != std::string::npos) {
        name = Trim(rest.substr(0, equals));
        value = rest.substr(equals + 1);
        if (typeText != "string") {
            const std::size_t hash = value.find('#');
            if (hash != std::string::npos) {
                value = value.substr(0, hash);
            }
        }
        value = Trim(value);
        if (value.empty()) {
            throw ParseError("constant without value: " + rawLine);
        }
    } else {
        const std::size_t hash = rest.find('#');
        name = Trim(hash == std::string::npos ? rest : rest.substr(0, hash));
    }
    if (!IsValidName(name)) {
        throw ParseError("bad field name: " + rawLine);
    }
    bool isArray = false;
    int arraySize = -1;
    const std::size_t bracket = typeText.find('[');
    if (bracket != std::string::npos) {
        if (typeText.back() != ']') {
            throw ParseError("bad array type: " + rawLine);
        }
        const std::string size = typeText.substr(bracket + 1, typeText.size() - bracket - 2);
        if (!size.empty()) {
            if (size.size() > 9 || !std::all_of(size.begin(), size.end(), [](unsigned char c) { return std::isdigit(c); })) {
                throw ParseError("bad array size: " + rawLine);
            }
            arraySize = std::stoi(size);
        }
        isArray = true;
        typeText = typeText.substr(0, bracket);
    }
    if (!IsValidTypeName(typeText)) {
        throw ParseError("bad type name: " + rawLine);
    }
    if (!value.empty() && (isArray || !ROSType(typeText).isBuiltin())) {
        throw ParseError("constants must be of a built-in type: " + rawLine);
    }
    return ROSField(ROSType(typeText), name, isArray, arraySize, value);
}

} // namespace

ROSField::ROSField(const ROSType& type, std::string name, bool isArray, int arraySize, std::string value)
    : type_(type), name_(std::move(name)), isArray_(isArray), arraySize_(arraySize), value_(std::move(value))
{
}

ROSMessage::ROSMessage(const std::string& definition)
{
    std::istringstream lines(definition);
    for (std::string line; std::getline(lines, line);) {
        const std::string trimmed = Trim(line);
        if (trimmed.empty() || trimmed[0] == '#') {
            continue;
        }
        fields_.push_back(ParseLine(trimmed));
    }
}

RosMessageLibrary ParseMessageDefinitions(const std::string& definition, const ROSType& rootType)
{
    if (rootType.isBuiltin() || rootType.pkgName().empty()) {
        throw ParseError("the root type must be a message type with its package: " + rootType.baseName());
    }
    // Sections are separated by lines of '=' and open with "MSG: package/Name".
    std::vector<std::pair<ROSType, std::string>> sections;
    sections.emplace_back(rootType, std::string());
    std::istringstream lines(definition);
    for (std::string line; std::getline(lines, line);) {
        const std::string trimmed = Trim(line);
        if (!trimmed.empty() && trimmed.find_first_not_of('=') == std::string::npos) {
            continue;
        }
        if (trimmed.rfind("MSG:", 0) == 0) {
            const ROSType type(Trim(trimmed.substr(4)));
            if (type.isBuiltin() || type.pkgName().empty() || !IsValidTypeName(type.baseName())) {
                throw ParseError("bad section header: " + trimmed);
            }
            sections.emplace_back(type, std::string());
            continue;
        }
        sections.back().second += line;
        sections.back().second += '\n';
    }

    RosMessageLibrary library;
    for (const auto& [type, text] : sections) {
        auto message = std::make_shared<ROSMessage>(text);
        message->setType(type);
        library[type] = message;
    }
    // Resolve the types of the fields.
    for (auto& [type, message] : library) {
        for (ROSField& field : message->fields()) {
            ROSType& fieldType = field.mutableType();
            if (fieldType.isBuiltin() || !fieldType.pkgName().empty()) {
                continue;
            }
            ROSType own = fieldType;
            own.setPkgName(type.pkgName());
            if (library.count(own) != 0) {
                fieldType = own;
                continue;
            }
            const auto match = std::find_if(library.begin(), library.end(), [&](const auto& entry) {
                return entry.first.msgName() == fieldType.msgName();
            });
            fieldType = match != library.end() ? match->first : own;
        }
    }
    for (const auto& [type, message] : library) {
        for (const ROSField& field : message->fields()) {
            if (!field.type().isBuiltin() && library.count(field.type()) == 0) {
                throw ParseError("no definition of " + field.type().baseName() + " used in " + type.baseName());
            }
        }
    }
    return library;
}

} // namespace RosMsgParser
