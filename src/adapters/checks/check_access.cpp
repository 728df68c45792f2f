#include <algorithm>

#include "adapters/checks/context.h"
#include "adapters/checks/numbers.h"
#include "runtime/text.h"

namespace catalogador::checks {

namespace {

constexpr std::size_t elementCount = 3;

bool somebodyHas(const Metadata& metadata, const std::string& option, const std::string& right) {
    return std::any_of(metadata.rights.begin(), metadata.rights.end(), [&](const RightRow& row) {
        return row.option == option && containsText(row.rights, right, Compare::text);
    });
}

}  // namespace

void checkAccess(const Context& context, const ViewRow& view) {
    if (orEmpty(view.access).empty()) return;
    const Place place = ofView(view, "ABMValidarAcceso");
    const std::vector<std::string> elements = splitText(*view.access, "|");
    if (elements.size() < elementCount) {
        context.findings.add(kind::accessElements, place, *view.access);
        return;
    }
    if (!anyNumber(elements[2])) context.findings.add(kind::accessCompany, place, elements[2]);
    if (elements[1].empty())
        context.findings.add(kind::accessRightEmpty, place, *view.access);
    else if (!somebodyHas(context.metadata, elements[0], elements[1]))
        context.findings.add(kind::accessNobody, place, elements[0], elements[1]);
}

}  // namespace catalogador::checks
