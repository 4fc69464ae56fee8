#include "ui/InformationPage.h"
