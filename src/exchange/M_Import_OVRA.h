// The imports of measures from a workbook.
#pragma once

#include "exchange/CourseImport.h"

namespace M_Import_OVRA
{
// Each runs, or resumes, the import that session.importSession tells of, and says how it ended; see CourseImport.h.
// Physico-chemical measures and pesticides, flows, rainfall.
IssueImport ImporterPhysico(Session &session);
IssueImport ImporterHydro(Session &session);
IssueImport ImporterPluvio(Session &session);
} // namespace M_Import_OVRA
