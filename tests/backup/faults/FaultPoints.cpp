#include "tests/backup/faults/FaultPoints.h"

#include <sstream>

#include "tests/backup/faults/Point.h"

namespace FaultPoints {

namespace {

Plan thePlan;
int theCount = 0;
bool isArmed = false;

}  // namespace

void Arm(const Plan& plan) noexcept {
    thePlan = plan;
    theCount = 0;
    isArmed = true;
}

int Disarm() noexcept {
    isArmed = false;
    return theCount;
}

bool MayExchange() noexcept {
    return !isArmed || thePlan.exchanges;
}

bool RenamesTakeRoom() noexcept {
    return thePlan.renamesTakeRoom;
}

bool MayMoveFolders() noexcept {
    return !isArmed || thePlan.movesFolders;
}

Outcome NextPoint(bool takesRoom) noexcept {
    if (!isArmed)
        return Outcome::Passes;
    ++theCount;
    switch (thePlan.fault) {
        case Fault::Killed:
            return theCount == thePlan.point ? Outcome::Killed : Outcome::Passes;
        case Fault::DiskFull:
            return takesRoom && theCount >= thePlan.point ? Outcome::DiskFull : Outcome::Passes;
        case Fault::Error:
            return theCount == thePlan.point ? Outcome::Error : Outcome::Passes;
        default:
            return Outcome::Passes;
    }
}

std::string TextOf(const Plan& plan) {
    std::ostringstream text;
    text << static_cast<int>(plan.fault) << ' ' << plan.point << ' ' << plan.exchanges << ' '
         << plan.renamesTakeRoom << ' ' << plan.movesFolders;
    return text.str();
}

Plan PlanOf(std::string_view text) {
    std::istringstream in{std::string(text)};
    Plan plan;
    int fault = 0;
    in >> fault >> plan.point >> plan.exchanges >> plan.renamesTakeRoom >> plan.movesFolders;
    plan.fault = static_cast<Fault>(fault);
    return plan;
}

}  // namespace FaultPoints
