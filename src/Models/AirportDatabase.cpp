#include "Models/AirportDatabase.h"

namespace {

using namespace Qt::StringLiterals;

// clang-format off
QList<Airport> makeTable()
{
    return {
        { u"IST"_s, u"Istanbul"_s, u"Istanbul Airport"_s, u"Türkiye"_s, true },
        { u"SAW"_s, u"Istanbul"_s, u"Sabiha Gokcen Airport"_s, u"Türkiye"_s, true },
        { u"ESB"_s, u"Ankara"_s, u"Esenboga Airport"_s, u"Türkiye"_s },
        { u"ADB"_s, u"Izmir"_s, u"Adnan Menderes Airport"_s, u"Türkiye"_s },
        { u"AYT"_s, u"Antalya"_s, u"Antalya Airport"_s, u"Türkiye"_s },
        { u"DLM"_s, u"Dalaman"_s, u"Dalaman Airport"_s, u"Türkiye"_s },
        { u"BJV"_s, u"Bodrum"_s, u"Milas-Bodrum Airport"_s, u"Türkiye"_s },
        { u"TZX"_s, u"Trabzon"_s, u"Trabzon Airport"_s, u"Türkiye"_s },
        { u"GZT"_s, u"Gaziantep"_s, u"Gaziantep Airport"_s, u"Türkiye"_s },
        { u"ADA"_s, u"Adana"_s, u"Cukurova International Airport"_s, u"Türkiye"_s },
        { u"KYA"_s, u"Konya"_s, u"Konya Airport"_s, u"Türkiye"_s },
        { u"ASR"_s, u"Kayseri"_s, u"Kayseri Airport"_s, u"Türkiye"_s },
        { u"NAV"_s, u"Nevsehir / Cappadocia"_s, u"Nevsehir Kapadokya Airport"_s, u"Türkiye"_s },
        { u"DIY"_s, u"Diyarbakir"_s, u"Diyarbakir Airport"_s, u"Türkiye"_s },
        { u"SZF"_s, u"Samsun"_s, u"Samsun Carsamba Airport"_s, u"Türkiye"_s },
        { u"VAN"_s, u"Van"_s, u"Van Ferit Melen Airport"_s, u"Türkiye"_s },
        { u"ERZ"_s, u"Erzurum"_s, u"Erzurum Airport"_s, u"Türkiye"_s },
        { u"LHR"_s, u"London"_s, u"Heathrow Airport"_s, u"United Kingdom"_s },
        { u"LGW"_s, u"London"_s, u"Gatwick Airport"_s, u"United Kingdom"_s },
        { u"MAN"_s, u"Manchester"_s, u"Manchester Airport"_s, u"United Kingdom"_s },
        { u"CDG"_s, u"Paris"_s, u"Charles de Gaulle Airport"_s, u"France"_s },
        { u"NCE"_s, u"Nice"_s, u"Cote d'Azur Airport"_s, u"France"_s },
        { u"FRA"_s, u"Frankfurt"_s, u"Frankfurt Airport"_s, u"Germany"_s },
        { u"MUC"_s, u"Munich"_s, u"Munich Airport"_s, u"Germany"_s },
        { u"BER"_s, u"Berlin"_s, u"Berlin Brandenburg Airport"_s, u"Germany"_s },
        { u"DUS"_s, u"Dusseldorf"_s, u"Dusseldorf Airport"_s, u"Germany"_s },
        { u"HAM"_s, u"Hamburg"_s, u"Hamburg Airport"_s, u"Germany"_s },
        { u"AMS"_s, u"Amsterdam"_s, u"Schiphol Airport"_s, u"Netherlands"_s },
        { u"BRU"_s, u"Brussels"_s, u"Brussels Airport"_s, u"Belgium"_s },
        { u"ZRH"_s, u"Zurich"_s, u"Zurich Airport"_s, u"Switzerland"_s },
        { u"GVA"_s, u"Geneva"_s, u"Geneva Airport"_s, u"Switzerland"_s },
        { u"VIE"_s, u"Vienna"_s, u"Vienna International Airport"_s, u"Austria"_s },
        { u"FCO"_s, u"Rome"_s, u"Fiumicino Airport"_s, u"Italy"_s },
        { u"MXP"_s, u"Milan"_s, u"Malpensa Airport"_s, u"Italy"_s },
        { u"VCE"_s, u"Venice"_s, u"Marco Polo Airport"_s, u"Italy"_s },
        { u"MAD"_s, u"Madrid"_s, u"Adolfo Suarez Barajas Airport"_s, u"Spain"_s },
        { u"BCN"_s, u"Barcelona"_s, u"El Prat Airport"_s, u"Spain"_s },
        { u"LIS"_s, u"Lisbon"_s, u"Humberto Delgado Airport"_s, u"Portugal"_s },
        { u"ATH"_s, u"Athens"_s, u"Eleftherios Venizelos Airport"_s, u"Greece"_s },
        { u"SKG"_s, u"Thessaloniki"_s, u"Makedonia Airport"_s, u"Greece"_s },
        { u"CPH"_s, u"Copenhagen"_s, u"Copenhagen Airport"_s, u"Denmark"_s },
        { u"ARN"_s, u"Stockholm"_s, u"Arlanda Airport"_s, u"Sweden"_s },
        { u"OSL"_s, u"Oslo"_s, u"Gardermoen Airport"_s, u"Norway"_s },
        { u"HEL"_s, u"Helsinki"_s, u"Vantaa Airport"_s, u"Finland"_s },
        { u"DUB"_s, u"Dublin"_s, u"Dublin Airport"_s, u"Ireland"_s },
        { u"WAW"_s, u"Warsaw"_s, u"Chopin Airport"_s, u"Poland"_s },
        { u"PRG"_s, u"Prague"_s, u"Vaclav Havel Airport"_s, u"Czech Republic"_s },
        { u"BUD"_s, u"Budapest"_s, u"Ferenc Liszt Airport"_s, u"Hungary"_s },
        { u"OTP"_s, u"Bucharest"_s, u"Henri Coanda Airport"_s, u"Romania"_s },
        { u"SOF"_s, u"Sofia"_s, u"Sofia Airport"_s, u"Bulgaria"_s },
        { u"BEG"_s, u"Belgrade"_s, u"Nikola Tesla Airport"_s, u"Serbia"_s },
        { u"SJJ"_s, u"Sarajevo"_s, u"Sarajevo Airport"_s, u"Bosnia and Herzegovina"_s },
        { u"ZAG"_s, u"Zagreb"_s, u"Franjo Tudman Airport"_s, u"Croatia"_s },
        { u"SKP"_s, u"Skopje"_s, u"International Airport Skopje"_s, u"North Macedonia"_s },
        { u"TGD"_s, u"Podgorica"_s, u"Podgorica Airport"_s, u"Montenegro"_s },
        { u"TIA"_s, u"Tirana"_s, u"Mother Teresa Airport"_s, u"Albania"_s },
        { u"GYD"_s, u"Baku"_s, u"Heydar Aliyev Airport"_s, u"Azerbaijan"_s },
        { u"TBS"_s, u"Tbilisi"_s, u"Shota Rustaveli Airport"_s, u"Georgia"_s },
        { u"JFK"_s, u"New York"_s, u"John F. Kennedy Airport"_s, u"United States"_s },
        { u"EWR"_s, u"Newark"_s, u"Newark Liberty Airport"_s, u"United States"_s },
        { u"ORD"_s, u"Chicago"_s, u"O'Hare Airport"_s, u"United States"_s },
        { u"LAX"_s, u"Los Angeles"_s, u"Los Angeles Airport"_s, u"United States"_s },
        { u"SFO"_s, u"San Francisco"_s, u"San Francisco Airport"_s, u"United States"_s },
        { u"MIA"_s, u"Miami"_s, u"Miami International Airport"_s, u"United States"_s },
        { u"BOS"_s, u"Boston"_s, u"Logan International Airport"_s, u"United States"_s },
        { u"IAD"_s, u"Washington D.C."_s, u"Dulles International Airport"_s, u"United States"_s },
        { u"IAH"_s, u"Houston"_s, u"George Bush Intercontinental"_s, u"United States"_s },
        { u"DFW"_s, u"Dallas"_s, u"Dallas/Fort Worth Airport"_s, u"United States"_s },
        { u"ATL"_s, u"Atlanta"_s, u"Hartsfield-Jackson Airport"_s, u"United States"_s },
        { u"SEA"_s, u"Seattle"_s, u"Seattle-Tacoma Airport"_s, u"United States"_s },
        { u"YYZ"_s, u"Toronto"_s, u"Pearson International Airport"_s, u"Canada"_s },
        { u"YUL"_s, u"Montreal"_s, u"Pierre Elliott Trudeau Airport"_s, u"Canada"_s },
        { u"YVR"_s, u"Vancouver"_s, u"Vancouver International Airport"_s, u"Canada"_s },
        { u"MEX"_s, u"Mexico City"_s, u"Benito Juarez Airport"_s, u"Mexico"_s },
        { u"CUN"_s, u"Cancun"_s, u"Cancun International Airport"_s, u"Mexico"_s },
        { u"DXB"_s, u"Dubai"_s, u"Dubai International Airport"_s, u"United Arab Emirates"_s },
        { u"AUH"_s, u"Abu Dhabi"_s, u"Zayed International Airport"_s, u"United Arab Emirates"_s },
        { u"DOH"_s, u"Doha"_s, u"Hamad International Airport"_s, u"Qatar"_s },
        { u"RUH"_s, u"Riyadh"_s, u"King Khalid Airport"_s, u"Saudi Arabia"_s },
        { u"JED"_s, u"Jeddah"_s, u"King Abdulaziz Airport"_s, u"Saudi Arabia"_s },
        { u"MED"_s, u"Medina"_s, u"Prince Mohammad bin Abdulaziz"_s, u"Saudi Arabia"_s },
        { u"AMM"_s, u"Amman"_s, u"Queen Alia Airport"_s, u"Jordan"_s },
        { u"BEY"_s, u"Beirut"_s, u"Rafic Hariri Airport"_s, u"Lebanon"_s },
        { u"KWI"_s, u"Kuwait City"_s, u"Kuwait International Airport"_s, u"Kuwait"_s },
        { u"BAH"_s, u"Manama"_s, u"Bahrain International Airport"_s, u"Bahrain"_s },
        { u"MCT"_s, u"Muscat"_s, u"Muscat International Airport"_s, u"Oman"_s },
        { u"BGW"_s, u"Baghdad"_s, u"Baghdad International Airport"_s, u"Iraq"_s },
        { u"EBL"_s, u"Erbil"_s, u"Erbil International Airport"_s, u"Iraq"_s },
        { u"IKA"_s, u"Tehran"_s, u"Imam Khomeini Airport"_s, u"Iran"_s },
        { u"ECN"_s, u"Nicosia / Ercan"_s, u"Ercan International Airport"_s, u"Northern Cyprus"_s },
        { u"NRT"_s, u"Tokyo"_s, u"Narita Airport"_s, u"Japan"_s },
        { u"HND"_s, u"Tokyo"_s, u"Haneda Airport"_s, u"Japan"_s },
        { u"KIX"_s, u"Osaka"_s, u"Kansai International Airport"_s, u"Japan"_s },
        { u"ICN"_s, u"Seoul"_s, u"Incheon International Airport"_s, u"South Korea"_s },
        { u"BKK"_s, u"Bangkok"_s, u"Suvarnabhumi Airport"_s, u"Thailand"_s },
        { u"HKT"_s, u"Phuket"_s, u"Phuket International Airport"_s, u"Thailand"_s },
        { u"SIN"_s, u"Singapore"_s, u"Changi Airport"_s, u"Singapore"_s },
        { u"KUL"_s, u"Kuala Lumpur"_s, u"Kuala Lumpur International"_s, u"Malaysia"_s },
        { u"DPS"_s, u"Bali / Denpasar"_s, u"Ngurah Rai Airport"_s, u"Indonesia"_s },
        { u"CGK"_s, u"Jakarta"_s, u"Soekarno-Hatta Airport"_s, u"Indonesia"_s },
        { u"MLE"_s, u"Male"_s, u"Velana International Airport"_s, u"Maldives"_s },
        { u"CMB"_s, u"Colombo"_s, u"Bandaranaike Airport"_s, u"Sri Lanka"_s },
        { u"DEL"_s, u"Delhi"_s, u"Indira Gandhi Airport"_s, u"India"_s },
        { u"BOM"_s, u"Mumbai"_s, u"Chhatrapati Shivaji Maharaj"_s, u"India"_s },
        { u"PEK"_s, u"Beijing"_s, u"Capital International Airport"_s, u"China"_s },
        { u"PVG"_s, u"Shanghai"_s, u"Pudong International Airport"_s, u"China"_s },
        { u"CAN"_s, u"Guangzhou"_s, u"Baiyun International Airport"_s, u"China"_s },
        { u"HKG"_s, u"Hong Kong"_s, u"Hong Kong International Airport"_s, u"Hong Kong"_s },
        { u"MEL"_s, u"Melbourne"_s, u"Melbourne Airport"_s, u"Australia"_s },
        { u"SYD"_s, u"Sydney"_s, u"Kingsford Smith Airport"_s, u"Australia"_s },
        { u"CAI"_s, u"Cairo"_s, u"Cairo International Airport"_s, u"Egypt"_s },
        { u"HRG"_s, u"Hurghada"_s, u"Hurghada International Airport"_s, u"Egypt"_s },
        { u"SSH"_s, u"Sharm El Sheikh"_s, u"Sharm El Sheikh Airport"_s, u"Egypt"_s },
        { u"CMN"_s, u"Casablanca"_s, u"Mohammed V Airport"_s, u"Morocco"_s },
        { u"RAK"_s, u"Marrakech"_s, u"Menara Airport"_s, u"Morocco"_s },
        { u"TUN"_s, u"Tunis"_s, u"Carthage Airport"_s, u"Tunisia"_s },
        { u"ALG"_s, u"Algiers"_s, u"Houari Boumediene Airport"_s, u"Algeria"_s },
        { u"JNB"_s, u"Johannesburg"_s, u"O.R. Tambo Airport"_s, u"South Africa"_s },
        { u"CPT"_s, u"Cape Town"_s, u"Cape Town International Airport"_s, u"South Africa"_s },
        { u"NBO"_s, u"Nairobi"_s, u"Jomo Kenyatta Airport"_s, u"Kenya"_s },
        { u"ZNZ"_s, u"Zanzibar"_s, u"Abeid Amani Karume Airport"_s, u"Tanzania"_s },
    };
}
// clang-format on

} // namespace

namespace AirportDatabase {

const QList<Airport> &allAirports()
{
    static const QList<Airport> table = makeTable();
    return table;
}

QList<Airport> search(const QString &query)
{
    const QString wanted = query.trimmed().toLower();
    if (wanted.isEmpty())
        return allAirports();

    const auto holds = [&wanted](const QString &field) { return field.toLower().contains(wanted); };
    QList<Airport> found;
    for (const Airport &airport : allAirports()) {
        if (holds(airport.code) || holds(airport.city) || holds(airport.country)
            || holds(airport.name))
            found.append(airport);
    }
    return found;
}

Airport airport(const QString &code)
{
    const QString wanted = code.toUpper();
    for (const Airport &airport : allAirports()) {
        if (airport.code.toUpper() == wanted)
            return airport;
    }
    return Airport { wanted, wanted, wanted + u" Airport"_s, QString(), false };
}

} // namespace AirportDatabase
