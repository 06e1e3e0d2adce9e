#include "QsUtils/config/ProjectOverview.h"

namespace QS_ProjectOverView {

CProjectOverViewFactory::CProjectOverViewFactory() = default;
CProjectOverViewFactory& CProjectOverViewFactory::operator=(const CProjectOverViewFactory&) = default;

}  // namespace QS_ProjectOverView
