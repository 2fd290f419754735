#pragma once

/// The properties of a chuck of no maker, in the forms of packages. Its bore, BHD, is not in the table of
/// symbols.
namespace vanzet::test {

inline constexpr const char* kChuckInPart21 = R"(ISO-10303-21;
HEADER;
FILE_DESCRIPTION(('a chuck; for tests'),'2;1');
FILE_SCHEMA(('PROPERTIES'));
ENDSEC;
DATA;
#1=ORGANIZATION('KF','K\X2\00FC\X0\hn',$);
#2=ITEM('KF-250-A6','Chuck 250',$);
#3=UNIT('mm');
#4=UNIT('kg');
/* the name of a value; the one of its property; that of a dictionary */
#10=PLIB_PROPERTY_REFERENCE('71EBDBF5060E6','dictionary');
#11=PROPERTY('length over all',#10);
#12=NUMERICAL_VALUE('OAL',$,#3,105.);
#13=PROPERTY_VALUE_REPRESENTATION(#11,#12,$);
#14=PROPERTY('BD',$);
#15=NUMERICAL_VALUE('nominal value',3,#3,250.0);
#16=PROPERTY_VALUE_REPRESENTATION(#14,#15,$);
#17=PROPERTY('WT',$);
#18=NUMERICAL_VALUE('WT',$,#4,38.5);
#19=PROPERTY_VALUE_REPRESENTATION(#17,#18,$);
#20=PROPERTY('BHD',$);
#21=NUMERICAL_VALUE('BHD',$,#3,(LENGTH_MEASURE(70.)));
#22=PROPERTY_VALUE_REPRESENTATION(#20,#21,$);
#23=PROPERTY('GRDMAT',$);
#24=STRING_VALUE('GRDMAT','steel; ''hard''');
#25=PROPERTY_VALUE_REPRESENTATION(#23,#24,$);
ENDSEC;
END-ISO-10303-21;
)";

inline constexpr const char* kChuckInXml = R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- a chuck for tests -->
<t:Device xmlns:t="urn:tests">
  <Head note="a > b"><Manufacturer>K&#xFC;hn &amp; Co</Manufacturer><PrimaryId>KF-250-A6</PrimaryId>
    <Designation><![CDATA[Chuck <250>]]></Designation></Head>
  <Property><PropertyName>OAL</PropertyName><Value>4</Value><Unit>inch</Unit></Property>
  <Property><PropertyName>BD</PropertyName><Value>250</Value></Property>
  <Property><PropertyName>EMPTY</PropertyName><Value/></Property>
</t:Device>
)";

}  // namespace vanzet::test
