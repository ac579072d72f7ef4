// Fields that show and are not typed in.
#pragma once

class QLineEdit;

namespace LectureSeule
{
// The field's text can be selected and copied; Tab passes it over, and its ground is the window's, in any palette.
void appliquer(QLineEdit *zone);
} // namespace LectureSeule
