// Natively the classes are part of the program; a folder of Windows files can be read, but nothing in it runs.
#include "platform/com/ClassTable.h"
#include "platform/system/Utf8.h"
#include "tools/lvprop/doctor/Diagnosis.h"
#include "tools/lvprop/doctor/SystemProbe.h"
#include "tools/lvprop/doctor/Trial.h"

#include <lumevor/Apartment.h>

std::string LoadRefusal(const std::string&)
{
    return {};
}

std::vector<RegistrationFacts> ReadRegistrations()
{
    std::vector<RegistrationFacts> registrations;
    for (const SuiteModule& module : SuiteModules()) {
        for (const SuiteClass& suiteClass : module.classes) {
            if (suiteClass.isControl)
                continue;
            const RegisteredClass* named = RegisteredClass::FindProgId(TextFromUtf8(suiteClass.ProgId()));
            RegistrationFacts facts;
            facts.module = &module;
            facts.suiteClass = &suiteClass;
            facts.isRegistered = RegisteredClass::Find(suiteClass.id) != nullptr;
            facts.nameLeadsHere = named && named->ClassId() == suiteClass.id;
            registrations.push_back(std::move(facts));
        }
    }
    return registrations;
}

TrialFacts TryRegistered(const std::vector<std::string>&)
{
    const lumevor::Apartment apartment;
    TrialFacts trial;
    for (const SuiteModule& module : SuiteModules())
        MakeClasses(module, LanguageCodes(), trial); // all languages: texts are English here, and nothing is loaded
    std::erase_if(trial.classes, [](const MadeClass& made) { return made.suiteClass->isControl; });
    return trial;
}

TrialFacts TryFolder(const FolderFacts&, const std::vector<std::string>&)
{
    return {};
}
