# The edits that Qt SVG 5.15 needs for Qt 6: views, which can be null, instead of references into
# strings,
s/QStringRef\(&(\w+(\.\w+)?), /QStringView(\1).mid(/
s/QStringRef\(&(\w+)\)/QStringView(\1)/
s/QStringRef\(([A-Za-z.]+)\.string\(\), \1\.position\(\)( \+ )?/\1.mid(0\2/
s/QStringRef (\w+)\(&(\w+), /QStringView \1 = QStringView(\2).mid(/
s/QStringRef (\w+)\(&(\w+)\)/QStringView \1(\2)/
s/QStringRef (\w+)\(([A-Za-z.]+)\.string\(\), \2\.position\(\)( \+ )?/QStringView \1 = \2.mid(0\3/
s/str\.string\(\)->constData\(\) \+ str\.position\(\)/str.constData()/
s/colorStrTr\.unicode\(\)/colorStrTr.constData()/
s/QXmlStreamStringRef (name|value);/QString \1;/
s/= QXmlStreamStringRef\((.*)\);/= (\1).toString();/
s/QStringRef/QStringView/g
s/= toDouble\(c\)/= str.isEmpty() ? 0 : toDouble(c)/

# no conversion of a number to a character or to a font's weight,
s/(unicode|\(end\)) = 0;/\1 = u'\\0';/
s/\? 0 : uncStr/? u'\\0' : uncStr/
s/setWeight\((SVGToQtWeight\(.*\))\)/setWeight(QFont::Weight(\1))/

# the attribute of a style's rule as an object, and no matrix beside the transformation.
s/QString (attribute)(\(NodePtr node, )const QString &name\) const override/QString \1Value\2const QCss::AttributeSelector \&wanted) const override { return \1(node, wanted.name); }\n    QString \1\2const QString \&name) const/
s/qmatrix\.h/qtransform.h/
/^QMatrix/,/^}/d
/^ *QMatrix/d
