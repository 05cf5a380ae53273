// A plug-in in miniature: built with hidden visibility like the real ones,
// it reads the application controller through its singleton slot.
#include "app/AppController.h"

extern "C" __attribute__((visibility("default"))) void* SlotReaderAppController()
{
    return UIKit::AppController::Instance().get();
}
