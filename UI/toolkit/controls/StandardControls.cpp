#include "controls/StandardControls.h"

#include "controls/AnimatedCtrl.h"
#include "controls/ButtonCtrl.h"
#include "controls/EditTextCtrl.h"
#include "controls/MonthPickerCtrl.h"
#include "controls/NumericUpDownCtrl.h"
#include "controls/PanelCtrl.h"
#include "controls/ProgressBarCtrl.h"
#include "controls/StaticTextCtrl.h"
#include "controls/StatesBoxCtrl.h"
#include "controls/ToolBar.h"
#include "controls/VScrollBar.h"
#include "controls/VScrollCtrl.h"
#include "descriptors/FrameCtrlDescriptor.h"
#include "descriptors/VScrollBarDescriptor.h"
#include "descriptors/VScrollCtrlDescriptor.h"
#include "factory/CtrlFactory.h"
#include "factory/CtrlGenerator.h"

namespace UIKit {

void RegisterStandardControls(CtrlFactory& factory)
{
    // Frames are made by the host and loaded from their descriptor, so the
    // factory only describes them.
    factory.AddGenerator(L"FrameCtrl", DescriptorGenerator<FrameCtrlDescriptor>::Make());
    factory.AddGenerator(L"PanelCtrl", CtrlGenerator<PanelCtrlDescriptor, PanelCtrl>::Make());
    factory.AddGenerator(L"ButtonCtrl", CtrlGenerator<ButtonCtrlDescriptor, ButtonCtrl>::Make());
    factory.AddGenerator(L"StaticTextCtrl", CtrlGenerator<StaticTextCtrlDescriptor, StaticTextCtrl>::Make());
    factory.AddGenerator(L"EditTextCtrl", CtrlGenerator<EditTextCtrlDescriptor, EditTextCtrl>::Make());
    factory.AddGenerator(L"AnimatedCtrl", CtrlGenerator<AnimatedCtrlDescriptor, AnimatedCtrl>::Make());
    factory.AddGenerator(L"ProgressBarCtrl", CtrlGenerator<ProgressBarCtrlDescriptor, ProgressBarCtrl>::Make());
    factory.AddGenerator(L"StatesBoxCtrl", CtrlGenerator<StatesBoxCtrlDescriptor, StatesBoxCtrl>::Make());
    factory.AddGenerator(L"MonthPickerCtrl", CtrlGenerator<PanelCtrlDescriptor, MonthPickerCtrl>::Make());
    factory.AddGenerator(L"VScrollBar", CtrlGenerator<VScrollBarDescriptor, VScrollBar>::Make());
    factory.AddGenerator(L"VScrollCtrl", CtrlGenerator<VScrollCtrlDescriptor, VScrollCtrl>::Make());
    factory.AddGenerator(L"ToolbarCtrl", CtrlGenerator<ToolbarCtrlDescriptor, ToolBar>::Make());
    factory.AddGenerator(L"NumericUpDownCtrl", CtrlGenerator<PanelCtrlDescriptor, NumericUpDownCtrl>::Make());
}

} // namespace UIKit
