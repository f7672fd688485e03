// Captions that belong to the design of the windows and stand in no message catalogue.
#pragma once

#include <cstdint>
#include <string>

namespace zv::resources {

enum class DesignText {
    KindGuest, KindDiary,
    StateNotDone, StateDone, StateInHand, StateAll,
    Order, OrderByDate, OrderByTitle, OrderByPlan,
    WayTelephone, WayEmail, WayWeb,
    TabItem, TabFilter, TabCard, TabOptions,
    Kind, Content, OtherFields, Remark, CardView,
    ContactWay, Contact, Company, Address, FindCard,
    Telephone, MobilePhone, HomePhone, Fax, Email, PrivateEmail, WebPage, PrivateWebPage,
    OnlyMyDoing, OnlyMySetting, Filter, FilterNotForPlans,
    DatabaseGroup, Server, Browse, AlertGroup, Minutes, StartupBirthday, StaffGroup,
    StaffFromPersonnel, StaffFromEmployees, BirthdayList, DaysAhead,
    CardCode, CardName, Birthday,
    ButtonSearch, ButtonAdd, ButtonChange, ButtonDelete, ButtonCancel, ButtonSave, ButtonDone,
    ButtonPrint, ButtonLayout, ButtonCall, ButtonMail, ButtonBrowse,
    MenuTask, MenuGuest, MenuDiary, MenuEvent, MenuSearch, MenuPrint, MenuDone, MenuPicture,
    MenuAdd, MenuChange, MenuDelete, MenuDoneEntry, MenuInHandEntry, MenuContact, MenuGenerate,
    MenuSearchFilter, MenuSearchMore, MenuPrintItem, MenuClose, MenuRestore,
    RowsNotShown,
};

/// The caption in the control's language: 1 Traditional, any other Simplified.
std::string GetDesignText(DesignText id, std::int16_t language);

}  // namespace zv::resources
