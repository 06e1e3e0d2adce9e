// QsUtils: the one header that a host includes.
#pragma once

#include "QsUtils/codes/CCodeParser.h"
#include "QsUtils/directory/DirectoryManager.h"
#include "QsUtils/directory/LibraryKey.h"
#include "QsUtils/directory/LibraryVisitor.h"
#include "QsUtils/expression/ExpressionAnalyse.h"
#include "QsUtils/frame/IQsUtils.h"
#include "QsUtils/frame/IQsUtils1.h"
#include "QsUtils/library/LibraryManager.h"
#include "QsUtils/material/CommonMaterialKey.h"
#include "QsUtils/platform/NativePath.h"
#include "QsUtils/text/CAtlException.h"
#include "QsUtils/text/CString.h"
#include "QsUtils/text/CStringArray.h"
#include "QsUtils/ui/YsType.h"
#include "QsUtils/xml/XMLNode.h"
#include "QsUtils/xml/XmlAccess.h"
